#include "BatchSupport.h"

#include <fcntl.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <thread>
#include <utility>

namespace quorvane {
namespace {

[[noreturn]] void becomeBatchProgram(const std::vector<std::string>& arguments) {
  std::vector<char*> argv = {const_cast<char*>("quorvane-batch")};
  for (const std::string& argument : arguments) argv.push_back(const_cast<char*>(argument.c_str()));
  argv.push_back(nullptr);
  // A run that never ends must not outlive a test that fails.
  constexpr unsigned longestSeconds = 120;
  ::alarm(longestSeconds);
  ::execv(QUORVANE_BATCH, argv.data());
  ::_exit(127);
}

/// The exit status, or the signal that ended the process, negative.
int waitFor(pid_t process) {
  int status = 0;
  if (::waitpid(process, &status, 0) != process) return -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

void redirectToFile(int stream, const std::filesystem::path& file) {
  const int fd = ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
  ::dup2(fd, stream);
}

}  // namespace

BatchProcess::BatchProcess(const std::vector<std::string>& arguments, const std::string& input, int output) {
  std::ofstream(folder_ / "in", std::ios::binary) << input;
  process_ = ::fork();
  if (process_ < 0) throw std::runtime_error("no process");
  if (process_ > 0) return;
  ::dup2(::open((folder_ / "in").c_str(), O_RDONLY), STDIN_FILENO);
  redirectToFile(STDERR_FILENO, folder_ / "err");
  if (output >= 0)
    ::dup2(output, STDOUT_FILENO);
  else
    redirectToFile(STDOUT_FILENO, folder_ / "out");
  becomeBatchProgram(arguments);
}

BatchProcess::~BatchProcess() {
  if (process_ < 0) return;
  ::kill(process_, SIGKILL);
  waitFor(process_);
}

void BatchProcess::signal(int number) const { ::kill(process_, number); }

Finished BatchProcess::wait() {
  const int status = waitFor(std::exchange(process_, -1));
  return {status, contentOf(folder_ / "out"), contentOf(folder_ / "err")};
}

Finished runBatchProgram(const std::vector<std::string>& arguments, const std::string& input) {
  return BatchProcess(arguments, input).wait();
}

std::string whyNoTerminal() {
  int ends[2];
  if (::openpty(&ends[0], &ends[1], nullptr, nullptr, nullptr) != 0)
    return std::string("no terminal can be had: ") + std::strerror(errno);
  for (const int end : ends) ::close(end);
  return {};
}

Finished runBatchProgramOnTerminal(const std::vector<std::string>& arguments, const Terminal& screen) {
  int terminal = -1;
  winsize size = {24, screen.columns, 0, 0};
  const pid_t process = ::forkpty(&terminal, nullptr, nullptr, &size);
  if (process < 0) throw std::runtime_error("no terminal");
  if (process == 0) becomeBatchProgram(arguments);
  Finished finished;
  char block[4096];
  bool asked = false;
  for (ssize_t count; (count = ::read(terminal, block, sizeof block)) > 0;) {
    finished.out.append(block, static_cast<std::size_t>(count));
    // A line may come in two pieces.
    const bool hasLine = finished.out.find('%') != std::string::npos;
    if (hasLine && screen.columnsBehindFirstLine > 0) size.ws_col = screen.columnsBehindFirstLine;
    ::ioctl(terminal, TIOCSWINSZ, &size);
    if (!asked && screen.isEnough(finished.out)) {
      asked = true;
      ::kill(process, SIGTERM);
    }
  }
  finished.status = waitFor(process);
  ::close(terminal);
  return finished;
}

bool waitUntil(const std::function<bool()>& condition) {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
  while (!condition()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  return true;
}

std::vector<std::vector<long>> rowsOf(const std::string& csv) {
  std::vector<std::vector<long>> rows;
  std::istringstream lines(csv);
  std::string line;
  std::getline(lines, line);
  while (std::getline(lines, line)) {
    std::istringstream cells(line);
    std::string cell;
    auto& row = rows.emplace_back();
    while (std::getline(cells, cell, ',')) row.push_back(std::stol(cell));
  }
  return rows;
}

}  // namespace quorvane
