#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <ostream>
#include <string>
#include <vector>

#include "FaultPlan.h"

namespace quorvane {

/// One way in which calls of a kind fail.
struct Fault {
  Call call;
  int error;             ///< an errno, kShort or kKill
  bool forEver = false;  ///< not only once, but from then on
};
std::ostream& operator<<(std::ostream& out, const Fault& fault);

/// Those that a save, an opening or a run may suffer from: the result may be lost then, and nothing else.
std::vector<Fault> harmfulFaults();

/// Those that must make no difference: a call that was interrupted, did a part, or is not offered by the
/// file system.
std::vector<Fault> harmlessFaults();

/// Sets a plan for the number-th call of a fault's kind on files of a folder.
void set(FaultPlan& plan, const std::filesystem::path& folder, const Fault& fault, int number);

/// Calls work with the first, second, third call failing and so on, until none is left to fail; with a step,
/// only with every such one. work: makes the calls with the plan as it is given. The number of calls that
/// failed.
int forEveryCall(FaultPlan& plan, const std::filesystem::path& folder, const Fault& fault,
                 const std::function<void(int number)>& work, int step = 1);

/// The names of the files in a folder and in those below it, with their content; "link" and where it leads
/// for a symbolic link. Without the files that gather beside a target.
using Files = std::map<std::string, std::string>;
Files filesIn(const std::filesystem::path& folder);
/// The names of those that gather beside a target.
std::vector<std::string> partialFilesIn(const std::filesystem::path& folder);

}  // namespace quorvane
