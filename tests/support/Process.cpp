#include "Process.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <stdexcept>
#include <utility>

namespace quorvane {
namespace {

/// Programs that a background job of a shell starts ignore some signals from the beginning.
[[maybe_unused]] const bool kSignalsAreTheUsual = [] {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) std::signal(signal, SIG_DFL);
  return true;
}();

void redirectToFile(int stream, const std::filesystem::path& file) {
  ::dup2(::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), stream);
}

}  // namespace

Process::Process(const std::string& program, const std::vector<std::string>& arguments,
                 const std::string& input, int output) {
  put(folder_ / "in", input);
  const std::string in = folder_ / "in";
  process_ = ::fork();
  if (process_ < 0) throw std::runtime_error("no process");
  if (process_ == 0) {
    ::dup2(::open(in.c_str(), O_RDONLY), STDIN_FILENO);
    redirectToFile(STDERR_FILENO, folder_ / "err");
    if (output >= 0)
      ::dup2(output, STDOUT_FILENO);
    else
      redirectToFile(STDOUT_FILENO, folder_ / "out");
    become(program, arguments);
  }
  handle_ = static_cast<int>(::syscall(SYS_pidfd_open, process_, 0));
}

Process::~Process() {
  if (process_ < 0) return;
  kill();
  statusOf(process_);
  ::close(handle_);
}

void Process::signal(int number) const {
  // -1, of one that was waited for, would stand for every process there is.
  if (process_ > 0) ::kill(process_, number);
}

void Process::kill() const { signal(SIGKILL); }

void Process::hold() const {
  signal(SIGSTOP);
  siginfo_t ignored = {};
  ::waitid(P_PID, static_cast<id_t>(process_), &ignored, WSTOPPED | WEXITED | WNOWAIT);
}

void Process::signalTogether(std::initializer_list<int> numbers) const {
  hold();
  for (const int number : numbers) signal(number);
  signal(SIGCONT);
}

bool Process::waitFor(std::chrono::microseconds time) const {
  constexpr long million = 1'000'000;
  const timespec limit = {time.count() / million, time.count() % million * 1000};
  pollfd end = {handle_, POLLIN, 0};
  return ::ppoll(&end, 1, &limit, nullptr) > 0;
}

Finished Process::wait() {
  const int status = statusOf(std::exchange(process_, -1));
  ::close(handle_);
  return {status, contentOf(folder_ / "out"), errors()};
}

std::string Process::errors() const { return contentOf(folder_ / "err"); }

Finished run(const std::string& program, const std::vector<std::string>& arguments,
             const std::string& input) {
  return Process(program, arguments, input).wait();
}

void become(const std::string& program, const std::vector<std::string>& arguments) {
  std::vector<char*> argv = {const_cast<char*>(program.c_str())};
  for (const std::string& argument : arguments) argv.push_back(const_cast<char*>(argument.c_str()));
  argv.push_back(nullptr);
  // A program that never ends must not outlive a failed test.
  constexpr unsigned longestSeconds = 250;
  ::alarm(longestSeconds);
  ::execv(program.c_str(), argv.data());
  constexpr int notFound = 127;
  ::_exit(notFound);
}

int statusOf(pid_t child) {
  int status = 0;
  if (::waitpid(child, &status, 0) != child) return -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

}  // namespace quorvane
