#include "Decision.h"

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstring>

namespace quorvane {
namespace {

FaultPlan* plan = nullptr;
constexpr int kMostFiles = 256;
std::array<bool, kMostFiles> watchedFiles = {};

bool matches(Call call) {
  return plan->call == call || (plan->call == Call::kAny && call != Call::kAllocate);
}

int count(Call call) { return ++plan->seen[static_cast<std::size_t>(call)]; }

void writeRecord(const char* bytes, std::size_t size) {
  const long file = ::syscall(SYS_openat, AT_FDCWD, plan->record.data(), O_WRONLY | O_CREAT | O_APPEND, 0600);
  ::syscall(SYS_write, file, bytes, size);
  ::syscall(SYS_close, file);
}

}  // namespace

void setFaultPlan(FaultPlan* newPlan) {
  watchedFiles = {};
  plan = newPlan;
}

bool isWatched(const char* path) {
  if (!plan || !path) return false;
  const std::size_t length = std::strlen(plan->folder.data());
  return std::strncmp(path, plan->folder.data(), length) == 0 &&
         (path[length] == '/' || path[length] == '\0');
}

bool isWatched(int file) {
  return plan && file >= 0 && file < kMostFiles && watchedFiles[static_cast<std::size_t>(file)];
}

void note(int file, bool watched) {
  if (file >= 0 && file < kMostFiles) watchedFiles[static_cast<std::size_t>(file)] = watched;
}

Verdict judge(Call call) {
  if (!plan) return Verdict::kGoOn;
  int number = count(call);
  if (call != Call::kAllocate) {
    const int ofAny = count(Call::kAny);
    if (plan->call == Call::kAny) number = ofAny;
  }
  const bool isMeant = number == plan->number || (plan->forEver && plan->number > 0 && number > plan->number);
  if (!matches(call) || !isMeant) return Verdict::kGoOn;
  ++plan->failed;
  if (plan->error == kKill) ::syscall(SYS_kill, ::getpid(), SIGKILL);
  if (plan->error == kShort) return Verdict::kDoHalf;
  if (plan->error == kNothing) return Verdict::kDoNothing;
  errno = plan->error;
  return Verdict::kFail;
}

void record(std::string_view bytes, const char* format, ...) {
  if (!plan || plan->record[0] == '\0') return;
  std::array<char, 2 * PATH_MAX + 64> line;
  std::va_list values;
  va_start(values, format);
  const int length = std::vsnprintf(line.data(), line.size(), format, values);
  va_end(values);
  writeRecord(line.data(), static_cast<std::size_t>(length));
  if (!bytes.empty()) writeRecord(bytes.data(), bytes.size());
}

void recordThatItIsSaid() { record({}, "said\n"); }

}  // namespace quorvane
