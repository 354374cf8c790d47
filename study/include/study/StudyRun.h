#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "study/Crew.h"
#include "study/StudyFolder.h"
#include "study/StudyResults.h"

namespace quorvane {

/// A part of the runs: those whose number is index modulo count.
struct ShardPart {
  std::int64_t index = 0;  ///< 0 to count - 1
  std::int64_t count = 1;  ///< 1 or more
};

struct StudyProgress {
  std::int64_t done = 0;    ///< runs of the part that were made, now or before
  std::int64_t failed = 0;  ///< runs that failed every time
  std::int64_t total = 0;   ///< runs of the part
  std::int64_t before = 0;  ///< of done, those made before
};

/// Gives the runs that are left of a study to a crew, in the order of their numbers. A run that fails is
/// tried twice more at the end and then kept as failed, with its reason.
class StudyRun {
 public:
  /// results: those so far.
  StudyRun(const StudyFolder& folder, const StudyResults& results, ShardPart part);

  /// Called after every report, and a few times a second.
  using Show = std::function<void(const StudyProgress&)>;
  /// Returns when no run is left, or, once keepGoing returns false, when all workers have stopped. Throws
  /// StudyError if results cannot be kept.
  void run(Crew& crew, const Show& show, const std::function<bool()>& keepGoing);

  const StudyProgress& progress() const { return progress_; }

 private:
  std::optional<std::int64_t> next();
  void handle(const Report& report, bool stopping);
  void failed(const Report& report);

  const StudyFolder& folder_;
  ShardPart part_;
  std::int64_t numRuns_;
  std::vector<bool> made_;  ///< by the place of a run in its part
  std::int64_t nextRun_;
  std::vector<std::int64_t> again_;
  std::map<std::int64_t, int> failures_;
  ShardWriter failedShard_;
  StudyProgress progress_;
};

}  // namespace quorvane
