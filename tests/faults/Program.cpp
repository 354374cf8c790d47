#include "Program.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <new>
#include <stdexcept>
#include <utility>

namespace quorvane {
namespace {

[[noreturn]] void become(const std::string& file, const std::vector<std::string>& arguments) {
  std::vector<char*> argv = {const_cast<char*>(file.c_str())};
  for (const std::string& argument : arguments) argv.push_back(const_cast<char*>(argument.c_str()));
  argv.push_back(nullptr);
  ::execv(file.c_str(), argv.data());
  ::_exit(127);
}

}  // namespace

SharedPlan::SharedPlan() {
  const std::string path = folder_ / "plan";
  const int file = ::open(path.c_str(), O_RDWR | O_CREAT, 0600);
  void* memory = MAP_FAILED;
  if (::ftruncate(file, sizeof(FaultPlan)) == 0)
    memory = ::mmap(nullptr, sizeof(FaultPlan), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
  ::close(file);
  if (memory == MAP_FAILED) throw std::runtime_error("no shared memory");
  plan_ = new (memory) FaultPlan;
  ::setenv(kPlanVariable, path.c_str(), 1);
  ::setenv("LD_PRELOAD", CALL_SHIM, 1);
}

SharedPlan::~SharedPlan() {
  ::unsetenv("LD_PRELOAD");
  ::unsetenv(kPlanVariable);
  ::munmap(plan_, sizeof(FaultPlan));
}

Program::Program(const std::string& file, const std::vector<std::string>& arguments) {
  const std::string output = folder_ / "out", errors = folder_ / "err";
  process_ = ::fork();
  if (process_ < 0) throw std::runtime_error("no process");
  if (process_ == 0) {
    ::dup2(::open("/dev/null", O_RDONLY), STDIN_FILENO);
    ::dup2(::open(output.c_str(), O_WRONLY | O_CREAT, 0600), STDOUT_FILENO);
    ::dup2(::open(errors.c_str(), O_WRONLY | O_CREAT, 0600), STDERR_FILENO);
    become(file, arguments);
  }
  handle_ = static_cast<int>(::syscall(SYS_pidfd_open, process_, 0));
}

Program::~Program() {
  kill();
  wait();
}

bool Program::waitFor(std::chrono::microseconds time) const {
  constexpr long million = 1'000'000;
  const timespec limit = {time.count() / million, time.count() % million * 1000};
  pollfd end = {handle_, POLLIN, 0};
  return ::ppoll(&end, 1, &limit, nullptr) > 0;
}

void Program::kill() const {
  if (process_ > 0) ::kill(process_, SIGKILL);
}

int Program::wait() {
  if (process_ < 0) return -1;
  constexpr std::chrono::seconds longest{60};
  if (!waitFor(longest)) kill();
  int status = 0;
  ::waitpid(std::exchange(process_, -1), &status, 0);
  ::close(handle_);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

std::string Program::errors() const { return contentOf(folder_ / "err"); }

}  // namespace quorvane
