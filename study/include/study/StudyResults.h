#pragma once

#include <cstdint>
#include <filesystem>
#include <list>
#include <memory>
#include <string>
#include <vector>

#include "study/RunResult.h"
#include "study/Shard.h"
#include "study/StudyFolder.h"

namespace quorvane {

/// Opens shards as they are needed, a limited number at once: there may be more than a process may open.
class OpenShards {
 public:
  OpenShards(std::vector<std::filesystem::path> files, const Digest& identity)
      : files_(std::move(files)), identity_(identity) {}

  const ShardReader& at(std::size_t shard);
  std::size_t size() const { return files_.size(); }
  const std::filesystem::path& file(std::size_t shard) const { return files_[shard]; }

 private:
  struct Open {
    std::size_t shard;
    std::unique_ptr<ShardReader> reader;
  };

  std::vector<std::filesystem::path> files_;
  Digest identity_;
  std::list<Open> open_;  ///< the last used first
};

/// The results of a study, by run number. Memory: 32 bytes for each run.
class StudyResults {
 public:
  /// Reads every shard of the folder. Throws StudyError if two records of a run differ, or a file cannot be
  /// read. Runs beyond the study's replicas are left out. A run that failed and was made later was made.
  explicit StudyResults(const StudyFolder& folder);

  struct Entry {
    std::int64_t run;
    std::uint32_t shard, length;
    std::int64_t offset;
  };
  /// Sorted by run number, each run once.
  const std::vector<Entry>& made() const { return made_; }
  /// Runs that failed every time, sorted.
  const std::vector<Entry>& failed() const { return failed_; }
  /// The entry of a run that was made; null if there is none.
  const Entry* find(std::int64_t run) const;

  RunResult result(const Entry& entry);
  /// The name of the shard that an entry is in.
  const std::filesystem::path& fileOf(const Entry& entry) const { return shards_.file(entry.shard); }

  /// A line for each shard with damage: bytes between records that belong to none.
  const std::vector<std::string>& damages() const { return damages_; }

 private:
  void scan(std::int64_t numRuns);
  void keepOneOfEach(std::vector<Entry>& entries, bool mustBeEqual);

  OpenShards shards_;
  std::vector<Entry> made_, failed_;
  std::vector<std::string> damages_;
};

}  // namespace quorvane
