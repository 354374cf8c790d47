#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <ostream>
#include <string>
#include <vector>

#include "FaultPlan.h"

namespace quorvane {

/// A way in which calls of a kind fail.
struct Fault {
  Call call;
  int error;             ///< an errno, kShort or kKill
  bool forEver = false;  ///< all later calls fail too
};
std::ostream& operator<<(std::ostream& out, const Fault& fault);

/// Faults that may make a save, an opening or a run fail, and must have no other effect.
std::vector<Fault> harmfulFaults();

/// Faults that must make no difference: interrupted calls, partial reads and writes, and calls that the file
/// system does not support.
std::vector<Fault> harmlessFaults();

/// Sets a plan for the n-th call of a fault's kind on files of a folder.
void set(FaultPlan& plan, const std::filesystem::path& folder, const Fault& fault, int number);

/// Calls work with the first, second, third call failing and so on, until no call is left to fail; with a
/// step, only every step-th. work: makes the calls under the given plan. Returns the number of calls that
/// failed.
int forEveryCall(FaultPlan& plan, const std::filesystem::path& folder, const Fault& fault,
                 const std::function<void(int number)>& work, int step = 1);

/// The names of the files in a folder and its subfolders, with their content; for a symbolic link "link" and
/// its target. Without partial files.
using Files = std::map<std::string, std::string>;
Files filesIn(const std::filesystem::path& folder);
/// The names of the partial files.
std::vector<std::string> partialFilesIn(const std::filesystem::path& folder);

}  // namespace quorvane
