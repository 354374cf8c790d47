#include "study/StudyResults.h"

#include <algorithm>
#include <tuple>

#include "batch/Messages.h"
#include "study/StudyError.h"

namespace quorvane {
namespace {

bool isBefore(const StudyResults::Entry& a, const StudyResults::Entry& b) {
  return std::tie(a.run, a.shard, a.offset) < std::tie(b.run, b.shard, b.offset);
}

RecordPlace placeOf(const StudyResults::Entry& entry) {
  return {.run = entry.run, .offset = entry.offset, .length = entry.length};
}

}  // namespace

const ShardReader& OpenShards::at(std::size_t shard) {
  constexpr std::size_t mostOpen = 200;
  const auto place =
      std::find_if(open_.begin(), open_.end(), [&](const Open& open) { return open.shard == shard; });
  if (place != open_.end()) {
    open_.splice(open_.begin(), open_, place);
  } else {
    if (open_.size() == mostOpen) open_.pop_back();
    open_.push_front({shard, std::make_unique<ShardReader>(files_[shard], identity_)});
  }
  return *open_.front().reader;
}

StudyResults::StudyResults(const StudyFolder& folder) : shards_(folder.shardFiles(), folder.identity()) {
  scan(numRuns(folder.study()));
  keepOneOfEach(made_, true);
  keepOneOfEach(failed_, false);
  failed_.erase(
      std::remove_if(failed_.begin(), failed_.end(), [&](const Entry& entry) { return find(entry.run); }),
      failed_.end());
}

void StudyResults::scan(std::int64_t numRuns) {
  for (std::size_t shard = 0; shard < shards_.size(); ++shard) {
    const ShardReader& reader = shards_.at(shard);
    const std::int64_t damaged = reader.scan([&](const RecordPlace& place, std::string_view content) {
      if (place.run < 0 || place.run >= numRuns) return;
      auto& entries = isFailure(content) ? failed_ : made_;
      entries.push_back({place.run, static_cast<std::uint32_t>(shard), place.length, place.offset});
    });
    if (damaged > 0)
      damages_.push_back(nameOf(shards_.file(shard)) + ": is damaged in " + std::to_string(damaged) +
                         (damaged == 1 ? " place" : " places") + "; the runs there are made again");
  }
}

void StudyResults::keepOneOfEach(std::vector<Entry>& entries, bool mustBeEqual) {
  std::sort(entries.begin(), entries.end(), isBefore);
  for (std::size_t k = 1; mustBeEqual && k < entries.size(); ++k) {
    const Entry &first = entries[k - 1], &second = entries[k];
    if (first.run != second.run) continue;
    if (shards_.at(first.shard).content(placeOf(first)) != shards_.at(second.shard).content(placeOf(second)))
      throw StudyError("run " + std::to_string(first.run) + " was made twice and differs: " +
                       nameOf(fileOf(first)) + " and " + nameOf(fileOf(second)));
  }
  const auto sameRun = [](const Entry& a, const Entry& b) { return a.run == b.run; };
  entries.erase(std::unique(entries.begin(), entries.end(), sameRun), entries.end());
}

const StudyResults::Entry* StudyResults::find(std::int64_t run) const {
  const auto place =
      std::lower_bound(made_.begin(), made_.end(), run,
                       [](const Entry& entry, std::int64_t number) { return entry.run < number; });
  return place != made_.end() && place->run == run ? &*place : nullptr;
}

RunResult StudyResults::result(const Entry& entry) {
  return resultIn(shards_.at(entry.shard).content(placeOf(entry)));
}

}  // namespace quorvane
