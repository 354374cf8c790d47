#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>

#include "batch/Messages.h"
#include "study/Crew.h"
#include "study/RunMaker.h"
#include "study/StudyFolder.h"
#include "study/StudyResults.h"
#include "study/StudyRun.h"

/// What quorvane-study does. Each gives the exit status, after one line on standard error for each failure.
namespace quorvane {

/// Exit statuses of quorvane-study, beside those of a stop by a signal, which are 128 and the signal.
enum StudyExit : int {
  kStudyDone = 0,
  kStudyFailed = 1,  ///< a file failed, the results are damaged, or runs failed every time
  kStudyUsage = 2,   ///< the command line or the study is wrong
};

/// Makes the workers of a study once it is read.
using CrewMaker = std::function<std::unique_ptr<Crew>(const StudyFolder& folder, RunMaker& maker)>;

struct RunOptions {
  std::filesystem::path study, results;
  std::optional<ShardPart> part;  ///< with a part no tables are made
};

/// Work whose failure is one line. Gives its status, or kStudyFailed.
int guarded(Messages& messages, const std::function<int()>& work);

/// Makes the tables; notes damage, and runs that failed or are missing. Returns what they were made from.
StudyResults tabulate(const StudyFolder& folder, const RunMaker& maker, Messages& messages);

int runStudy(const RunOptions& options, const CrewMaker& crewFor, Messages& messages);
int makeTables(const std::filesystem::path& results, Messages& messages);
int printStatus(const std::filesystem::path& results, Messages& messages);
/// Reads every record and makes some runs again, evenly over those made, to compare.
int checkResults(const std::filesystem::path& results, std::int64_t numRunsAgain, Messages& messages);
int printSlurmScript(const std::filesystem::path& study, const std::filesystem::path& results,
                     std::int64_t tasks, Messages& messages);
int printCommand(const std::filesystem::path& study, std::int64_t run, Messages& messages);

}  // namespace quorvane
