#pragma once

#include <functional>

#include "study/Crew.h"
#include "study/RunMaker.h"
#include "study/Shard.h"
#include "study/StudyFolder.h"

namespace quorvane {

/// Makes runs one after the other and keeps them in a shard of its own. For one thread of a process.
class Worker {
 public:
  Worker(const StudyFolder& folder, RunMaker& maker)
      : maker_(maker), shard_(folder.shards(), folder.identity()) {}

  /// Makes a run and keeps its result. goOn: asked every few sweeps; false drops the run. Throws nothing.
  Report work(int number, std::int64_t run, const std::function<bool()>& goOn);

 private:
  RunMaker& maker_;
  ShardWriter shard_;
};

}  // namespace quorvane
