#include "Faults.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "DocumentSupport.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;

constexpr const char* kNames[] = {"open",   "read",   "write",   "fsync",     "close",  "rename",
                                  "fchmod", "fchown", "unlink",  "ftruncate", "stat",   "access",
                                  "mkdir",  "flock",  "readdir", "readlink",  "malloc", "any call"};
static_assert(std::size(kNames) == kNumCalls);

bool isPartial(const fs::path& path) { return path.extension() == ".partial"; }

std::string describe(const fs::path& path) {
  if (fs::is_symlink(path)) return "link to " + fs::read_symlink(path).string();
  return fs::is_directory(path) ? "folder" : contentOf(path);
}

}  // namespace

std::ostream& operator<<(std::ostream& out, const Fault& fault) {
  out << kNames[static_cast<int>(fault.call)] << ": ";
  out << (fault.error == kShort     ? "half"
          : fault.error == kNothing ? "nothing"
          : fault.error == kKill    ? "kill"
                                    : std::strerror(fault.error));
  return out << (fault.forEver ? ", from then on" : "");
}

std::vector<Fault> harmfulFaults() {
  std::vector<Fault> faults = {
      {Call::kOpen, EIO},      {Call::kOpen, ENOSPC},   {Call::kOpen, EMFILE},       {Call::kOpen, EACCES},
      {Call::kRead, EIO},      {Call::kWrite, ENOSPC},  {Call::kWrite, EIO},         {Call::kWrite, kNothing},
      {Call::kSync, EIO},      {Call::kSync, ENOSPC},   {Call::kClose, EIO},         {Call::kClose, ENOSPC},
      {Call::kRename, EIO},    {Call::kRename, ENOSPC}, {Call::kRename, EACCES},     {Call::kMode, EIO},
      {Call::kOwner, EIO},     {Call::kTruncate, EIO},  {Call::kStatus, EIO},        {Call::kStatus, EACCES},
      {Call::kStatus, ENOMEM}, {Call::kAccess, EIO},    {Call::kMakeFolder, ENOSPC}, {Call::kList, EIO},
      {Call::kReadLink, EIO},  {Call::kUnlink, EIO},    {Call::kAllocate, ENOMEM}};
  const auto numOnce = faults.size();
  for (std::size_t k = 0; k < numOnce; ++k) faults.push_back({faults[k].call, faults[k].error, true});
  faults.push_back({Call::kAny, EIO, true});
  return faults;
}

std::vector<Fault> harmlessFaults() {
  std::vector<Fault> faults = {{Call::kRead, kShort},
                               {Call::kRead, kShort, true},
                               {Call::kWrite, kShort},
                               {Call::kWrite, kShort, true},
                               {Call::kLock, ENOLCK, true}};
  for (const Call call : {Call::kOpen, Call::kRead, Call::kWrite, Call::kSync, Call::kClose})
    faults.push_back({call, EINTR});
  for (const int error : {EPERM, EINVAL, ENOTSUP}) {
    faults.push_back({Call::kMode, error, true});
    faults.push_back({Call::kSync, error, true});
  }
  return faults;
}

void set(FaultPlan& plan, const fs::path& folder, const Fault& fault, int number) {
  std::strncpy(plan.folder.data(), folder.c_str(), plan.folder.size() - 1);
  plan.call = fault.call;
  plan.number = number;
  plan.forEver = fault.forEver;
  plan.error = fault.error;
  for (auto& seen : plan.seen) seen = 0;
  plan.failed = 0;
}

int forEveryCall(FaultPlan& plan, const fs::path& folder, const Fault& fault,
                 const std::function<void(int number)>& work, int step) {
  int numFailed = 0;
  for (int number = 1;; number += step) {
    set(plan, folder, fault, number);
    work(number);
    if (plan.failed == 0) return numFailed;
    numFailed += plan.failed;
  }
}

Files filesIn(const fs::path& folder) {
  Files files;
  for (const auto& entry : fs::recursive_directory_iterator(folder))
    if (!isPartial(entry.path())) files[entry.path().lexically_relative(folder)] = describe(entry.path());
  return files;
}

std::vector<std::string> partialFilesIn(const fs::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::recursive_directory_iterator(folder))
    if (isPartial(entry.path())) names.push_back(entry.path().lexically_relative(folder));
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace quorvane
