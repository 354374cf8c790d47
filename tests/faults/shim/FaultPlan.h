#pragma once

#include <array>
#include <atomic>
#include <climits>

/// What the tests and the library that they put in front of the C library agree on.
namespace quorvane {

/// Calls of the system by what they do.
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
  kAllocate,  ///< anywhere, not only for a file
  kAny,       ///< every one of the above but kAllocate
  kNumCalls
};
inline constexpr auto kNumCalls = static_cast<std::size_t>(Call::kNumCalls);

/// Values of FaultPlan::error that are no errno.
inline constexpr int kShort = -1;    ///< reads and writes do a half of what is asked
inline constexpr int kNothing = -3;  ///< writes take nothing, and reads find the end
inline constexpr int kKill = -2;     ///< the process is killed instead of the call

/// Which calls fail, and what was seen. Lies in memory that a test shares with the program.
///
/// Calls are counted only while the plan is in force, and only those on a path inside the folder, or on a
/// descriptor that was opened there meanwhile.
struct FaultPlan {
  std::array<char, PATH_MAX> folder = {};  ///< absolute, without links
  Call call = Call::kAny;
  int number = 0;        ///< the call that fails, counted from 1 among those of its kind; 0: none
  bool forEver = false;  ///< all later ones fail, too
  int error = 0;
  /// Where a record of the calls goes, outside the folder; empty: nowhere.
  std::array<char, PATH_MAX> record = {};

  std::array<std::atomic<int>, kNumCalls> seen = {};
  std::atomic<int> failed = 0;

  int numSeen(Call kind) const { return seen[static_cast<std::size_t>(kind)]; }
};

/// Puts a plan in force in this process; null ends that. A program that is started with the library
/// preloaded takes the plan in the file that kPlanVariable names, for as long as its main runs.
void setFaultPlan(FaultPlan* plan);
inline constexpr const char* kPlanVariable = "QUORVANE_FAULT_PLAN";

/// Adds a line to the record: the program has said that all is written.
void recordThatItIsSaid();

}  // namespace quorvane
