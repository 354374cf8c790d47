#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "study/Crew.h"

namespace quorvane {

/// The other ranks of an MPI job, as rank 0 sees them: worker w is rank w + 1. MPI must be initialised, and
/// is used by this thread only.
class MpiCrew : public Crew {
 public:
  explicit MpiCrew(int size) : size_(size), runs_(static_cast<std::size_t>(size), -1) {}

  /// Waits for the reports of all runs under way, which are told to stop.
  ~MpiCrew() override;

  int size() const override { return size_; }
  void give(int worker, std::int64_t run) override;
  std::vector<Report> wait(std::chrono::milliseconds longest) override;
  void stop() override;

 private:
  int size_;
  std::vector<std::int64_t> runs_;  ///< of each worker; -1 if it has none
};

/// Rank 0 tells all others that no more runs come.
void dismissRanks();

/// What every other rank does until it is dismissed. The folder of the results is opened with the first run.
void workAsRank(const std::filesystem::path& results);

/// The number of tasks that the launcher says there are, 1 if it says nothing.
int tasksOfTheAllocation();

}  // namespace quorvane
