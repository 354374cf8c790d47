#pragma once

#include <string>
#include <vector>

/// Calls of the system as this program makes them: what they do can be changed, and they are written down.
namespace quorvane {

/// While it lives, calls of the functions named below are written down, and those that are set fail.
class CallFaults {
 public:
  CallFaults();
  ~CallFaults();
  CallFaults(const CallFaults&) = delete;
  CallFaults& operator=(const CallFaults&) = delete;

  int writeGives = -1;                                                    ///< 0: every write takes nothing
  int fsyncFails = 0, fchmodFails = 0, fchownFails = 0, renameFails = 0;  ///< errno, 0 for none
  int statFails = 0;                                                      ///< the same, and not written down

  /// "write", "fsync file", "fsync folder", "fchmod", "fchown", "rename", in order.
  std::vector<std::string> calls;
};

}  // namespace quorvane
