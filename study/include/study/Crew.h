#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace quorvane {

/// How a run ended at a worker.
struct Report {
  enum What {
    kMade,     ///< its record is in the worker's shard
    kFailed,   ///< it gave nothing, for this reason
    kDied,     ///< the worker died in it; another one has its place
    kDropped,  ///< it was given up, since the worker was told to stop
    kNotKept,  ///< it was made, but its record could not be written: the study cannot go on
  };

  int worker;
  std::int64_t run;
  What what;
  std::string reason;  ///< empty for kMade and kDropped
};

/// Workers that make one run at a time each.
class Crew {
 public:
  Crew() = default;
  Crew(const Crew&) = delete;
  Crew& operator=(const Crew&) = delete;
  /// Ends the workers and waits for them.
  virtual ~Crew() = default;

  /// Workers are numbered from 0.
  virtual int size() const = 0;
  /// Gives a run to a worker that has none.
  virtual void give(int worker, std::int64_t run) = 0;
  /// What has come since, after waiting for the first at most so long. A stop signal may end the wait early.
  virtual std::vector<Report> wait(std::chrono::milliseconds longest) = 0;
  /// Tells workers to drop their runs; each still reports.
  virtual void stop() = 0;
};

}  // namespace quorvane
