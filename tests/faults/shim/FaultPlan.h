#pragma once

#include <array>
#include <atomic>
#include <climits>

/// The interface between the tests and the preloaded library.
namespace quorvane {

/// System calls by purpose.
enum class Call : int {
  kOpen,
  kRead,
  kWrite,
  kSync,
  kClose,
  kRename,
  kMode,
  kOwner,
  kUnlink,
  kTruncate,
  kStatus,
  kAccess,
  kMakeFolder,
  kLock,
  kList,
  kReadLink,
  kAllocate,  ///< any allocation, not only for a file
  kAny,       ///< all of the above except kAllocate
  kNumCalls
};
inline constexpr auto kNumCalls = static_cast<std::size_t>(Call::kNumCalls);

/// Values of FaultPlan::error that are not an errno.
inline constexpr int kShort = -1;    ///< reads and writes transfer half of the bytes
inline constexpr int kNothing = -3;  ///< writes write nothing, and reads find the end
inline constexpr int kKill = -2;     ///< the process is killed in place of the call

/// Which calls fail, and what was counted. Lives in memory that a test shares with the program.
///
/// Calls are counted only while the plan is active, and only those on a path inside the folder, or on a
/// descriptor that was opened there while it was active.
struct FaultPlan {
  std::array<char, PATH_MAX> folder = {};  ///< absolute, without links
  Call call = Call::kAny;
  int number = 0;        ///< the call that fails, counted from 1 among those of its kind; 0: none
  bool forEver = false;  ///< all later ones fail, too
  int error = 0;
  /// The file for the record of the calls, outside the folder; empty: no record.
  std::array<char, PATH_MAX> record = {};

  std::array<std::atomic<int>, kNumCalls> seen = {};
  std::atomic<int> failed = 0;

  int numSeen(Call kind) const { return seen[static_cast<std::size_t>(kind)]; }
};

/// Activates a plan in this process; null deactivates it. A program that is started with the library
/// preloaded activates the plan in the file named by kPlanVariable while its main runs.
void setFaultPlan(FaultPlan* plan);
inline constexpr const char* kPlanVariable = "QUORVANE_FAULT_PLAN";

/// Adds a line to the record: the program has reported that all is written.
void recordThatItIsSaid();

}  // namespace quorvane
