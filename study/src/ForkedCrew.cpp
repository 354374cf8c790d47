#include "study/ForkedCrew.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <system_error>

#include "process/StopSignals.h"
#include "study/ReportPacket.h"
#include "study/StudyError.h"
#include "study/Worker.h"

namespace quorvane {
namespace {

std::string lastErrorText() { return std::generic_category().message(errno); }

/// Why a process ended.
std::string endOf(int status) {
  if (WIFSIGNALED(status)) return std::string("its process was killed: ") + ::strsignal(WTERMSIG(status));
  return "its process ended with status " + std::to_string(WEXITSTATUS(status));
}

}  // namespace

ForkedCrew::ForkedCrew(int size, const StudyFolder& folder, RunMaker& maker)
    : folder_(folder), maker_(maker), members_(static_cast<std::size_t>(size)) {
  for (int number = 0; number < size; ++number) start(number);
}

ForkedCrew::~ForkedCrew() {
  // A worker that waits for a run ends when its socket closes; one in a run is told so.
  for (Member& member : members_) {
    if (member.process > 0 && member.run >= 0) ::kill(member.process, SIGTERM);
    if (member.socket >= 0) ::close(member.socket);
  }
  for (const Member& member : members_)
    while (member.process > 0 && ::waitpid(member.process, nullptr, 0) < 0 && errno == EINTR) continue;
}

void ForkedCrew::start(int number) {
  int ends[2];
  if (::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) != 0)
    throw StudyError("no worker can be started: " + lastErrorText());
  const pid_t parent = ::getpid();
  const pid_t process = ::fork();
  if (process < 0) {
    const std::string why = lastErrorText();
    ::close(ends[0]);
    ::close(ends[1]);
    throw StudyError("no worker can be started: " + why);
  }
  Member& member = members_[static_cast<std::size_t>(number)];
  if (process == 0) {
    ::close(ends[0]);
    // The others would not notice the end of the parent while this one holds its ends.
    for (const Member& other : members_)
      if (&other != &member && other.socket >= 0) ::close(other.socket);
    if (::getppid() == parent) workInChild(number, ends[1]);
    ::_exit(0);
  }
  ::close(ends[1]);
  member = {.process = process, .socket = ends[0], .run = -1};
}

void ForkedCrew::workInChild(int number, int socket) {
  const pid_t parent = ::getppid();
  {
    Worker worker(folder_, maker_);
    std::int64_t run = 0;
    for (;;) {
      const ssize_t length = ::recv(socket, &run, sizeof run, 0);
      if (length < 0 && errno == EINTR && stopSignal() == 0) continue;
      if (length != static_cast<ssize_t>(sizeof run)) break;
      const auto goOn = [parent] { return stopSignal() == 0 && ::getppid() == parent; };
      const Report report = worker.work(number, run, goOn);
      const std::string packet = packetOf(report);
      if (::send(socket, packet.data(), packet.size(), MSG_NOSIGNAL) < 0) break;
      if (report.what != Report::kMade && report.what != Report::kFailed) break;
    }
  }
  // Not exit: what the parent has registered for its end is not for the child.
  ::_exit(0);
}

void ForkedCrew::give(int worker, std::int64_t run) {
  Member& member = members_[static_cast<std::size_t>(worker)];
  member.run = run;
  // If the worker has died, its socket tells so when it is read.
  static_cast<void>(!::send(member.socket, &run, sizeof run, MSG_NOSIGNAL));
}

Report ForkedCrew::receive(int number) {
  Member& member = members_[static_cast<std::size_t>(number)];
  std::array<char, 4096> packet;
  const ssize_t length = ::recv(member.socket, packet.data(), packet.size(), 0);
  if (length <= 0) return buried(number);
  Report report = reportIn({packet.data(), static_cast<std::size_t>(length)}, number, member.run);
  member.run = -1;
  return report;
}

/// Waits for a worker that has died, and starts another one in its place.
Report ForkedCrew::buried(int number) {
  Member& member = members_[static_cast<std::size_t>(number)];
  int status = 0;
  while (::waitpid(member.process, &status, 0) < 0 && errno == EINTR) continue;
  ::close(member.socket);
  Report report{.worker = number, .run = member.run, .what = Report::kDied, .reason = endOf(status)};
  member = {};
  if (!stopping_) start(number);
  return report;
}

std::vector<Report> ForkedCrew::wait(std::chrono::milliseconds longest) {
  std::vector<pollfd> sockets;
  for (const Member& member : members_)
    sockets.push_back({.fd = member.socket, .events = POLLIN, .revents = 0});
  std::vector<Report> reports;
  if (::poll(sockets.data(), sockets.size(), static_cast<int>(longest.count())) <= 0) return reports;
  for (std::size_t k = 0; k < sockets.size(); ++k)
    if (sockets[k].revents != 0) reports.push_back(receive(static_cast<int>(k)));
  return reports;
}

void ForkedCrew::stop() {
  stopping_ = true;
  for (const Member& member : members_)
    if (member.process > 0 && member.run >= 0) ::kill(member.process, SIGTERM);
}

}  // namespace quorvane
