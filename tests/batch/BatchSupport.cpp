#include "BatchSupport.h"

#include <pty.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <sstream>
#include <stdexcept>

namespace quorvane {
Finished runBatchProgram(const std::vector<std::string>& arguments, const std::string& input) {
  return run(QUORVANE_BATCH, arguments, input);
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
  if (process == 0) become(QUORVANE_BATCH, arguments);
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
  finished.status = statusOf(process);
  ::close(terminal);
  return finished;
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
