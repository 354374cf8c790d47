#include "study/StudyRun.h"

#include "study/RunResult.h"
#include "study/StudyError.h"

namespace quorvane {

namespace {

/// How often a run is tried before it stands in the table of failed ones.
constexpr int kMostTries = 3;

}  // namespace

StudyRun::StudyRun(const StudyFolder& folder, const StudyResults& results, ShardPart part)
    : folder_(folder),
      part_(part),
      numRuns_(numRuns(folder.study())),
      nextRun_(part.index),
      failedShard_(folder.shards(), folder.identity()) {
  progress_.total = numRuns_ > part.index ? (numRuns_ - part.index - 1) / part.count + 1 : 0;
  made_.resize(static_cast<std::size_t>(progress_.total));
  for (const auto& entry : results.made()) {
    if (entry.run % part.count != part.index) continue;
    made_[static_cast<std::size_t>(entry.run / part.count)] = true;
    ++progress_.done;
  }
  progress_.before = progress_.done;
}

std::optional<std::int64_t> StudyRun::next() {
  for (; nextRun_ < numRuns_; nextRun_ += part_.count) {
    if (made_[static_cast<std::size_t>(nextRun_ / part_.count)]) continue;
    const std::int64_t run = nextRun_;
    nextRun_ += part_.count;
    return run;
  }
  if (again_.empty()) return std::nullopt;
  const std::int64_t run = again_.front();
  again_.erase(again_.begin());
  return run;
}

void StudyRun::failed(const Report& report) {
  if (++failures_[report.run] < kMostTries) {
    again_.push_back(report.run);
    return;
  }
  RunResult result;
  result.failure = report.reason;
  failedShard_.append(report.run, bytesOf(result));
  ++progress_.failed;
}

void StudyRun::handle(const Report& report, bool stopping) {
  if (report.run < 0) return;  // an idle worker was replaced
  switch (report.what) {
    case Report::kMade:
      ++progress_.done;
      return;
    case Report::kNotKept:
      throw StudyError(report.reason);
    case Report::kFailed:
    case Report::kDied:
    case Report::kDropped:
      break;
  }
  if (stopping) return;
  const bool killed = report.what == Report::kDropped;
  failed(killed ? Report{report.worker, report.run, Report::kDied, "its process was told to stop"} : report);
}

void StudyRun::run(Crew& crew, const Show& show, const std::function<bool()>& keepGoing) {
  constexpr std::chrono::milliseconds atOnce{200};
  std::vector<bool> busy(static_cast<std::size_t>(crew.size()));
  int numBusy = 0;
  bool stopping = false;
  const auto stopIfAsked = [&] {
    if (stopping || keepGoing()) return;
    stopping = true;
    crew.stop();
  };
  for (;;) {
    stopIfAsked();
    for (std::size_t worker = 0; !stopping && worker < busy.size(); ++worker) {
      if (busy[worker]) continue;
      const auto run = next();
      if (!run) break;
      crew.give(static_cast<int>(worker), *run);
      busy[worker] = true;
      ++numBusy;
    }
    if (numBusy == 0) return;
    const std::vector<Report> reports = crew.wait(atOnce);
    stopIfAsked();
    for (const Report& report : reports) {
      if (report.run >= 0) {
        busy[static_cast<std::size_t>(report.worker)] = false;
        --numBusy;
      }
      handle(report, stopping);
    }
    show(progress_);
  }
}

}  // namespace quorvane
