#pragma once

#include <string>
#include <vector>

/// Intercepts and records system calls of this program.
namespace quorvane {

/// During its lifetime, calls of the functions named below are recorded, and the chosen ones fail.
class CallFaults {
 public:
  CallFaults();
  ~CallFaults();
  CallFaults(const CallFaults&) = delete;
  CallFaults& operator=(const CallFaults&) = delete;

  int writeGives = -1;                                                    ///< 0: every write writes nothing
  int fsyncFails = 0, fchmodFails = 0, fchownFails = 0, renameFails = 0;  ///< errno, 0 for none
  int statFails = 0;                                                      ///< errno, 0 for none; not recorded

  /// "write", "fsync file", "fsync folder", "fchmod", "fchown", "rename", in order.
  std::vector<std::string> calls;
};

}  // namespace quorvane
