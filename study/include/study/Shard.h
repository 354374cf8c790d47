#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "checkpoint/Digest.h"

/// Shards: files to which one worker each appends the results of its runs.
///
/// A shard begins with the eight bytes "QSHARD1\n" and the digest of the study's identity (16 bytes). A
/// record is: the four bytes "QREC", the length of its content (4 bytes), the first eight bytes of the digest
/// of all that follows, the run number (8 bytes), the content. Numbers have the lowest byte first. A record
/// that was cut off or damaged is recognised and passed over; what follows it is found again by the four
/// bytes.
namespace quorvane {

/// Where a whole record is.
struct RecordPlace {
  std::int64_t run;
  std::int64_t offset;   ///< of the content in the shard
  std::uint32_t length;  ///< of the content
};

/// A shard being read.
class ShardReader {
 public:
  /// Throws StudyError if the file cannot be opened or is no shard. identity: of the study; a shard of
  /// another one is refused.
  ShardReader(std::filesystem::path file, const Digest& identity);
  ~ShardReader();
  ShardReader(const ShardReader&) = delete;
  ShardReader& operator=(const ShardReader&) = delete;

  /// content: of the record; good until the function returns.
  using Found = std::function<void(const RecordPlace& place, std::string_view content)>;
  /// Calls found for each whole record, in the order of the file. Returns the number of places with bytes
  /// that belong to no whole record and have one behind them: damage, not a torn tail.
  std::int64_t scan(const Found& found) const;

  /// The content of a record that scan has found. Throws StudyError if the file has changed since.
  std::string content(const RecordPlace& place) const;

  const std::filesystem::path& file() const { return file_; }

 private:
  std::string bytes(std::int64_t offset, std::size_t length) const;

  std::filesystem::path file_;
  int descriptor_ = -1;
  std::int64_t size_ = 0;
};

/// A shard being written. The file is made with the first record, with a random name, so that no two workers
/// on any machine share one.
class ShardWriter {
 public:
  ShardWriter(std::filesystem::path folder, const Digest& identity)
      : folder_(std::move(folder)), identity_(identity) {}
  /// Synchronises the file to the disk.
  ~ShardWriter();
  ShardWriter(const ShardWriter&) = delete;
  ShardWriter& operator=(const ShardWriter&) = delete;

  /// Appends a record in one piece. Throws StudyError; what was written of the record is then cut off again,
  /// or left as a torn tail.
  void append(std::int64_t run, std::string_view content);

 private:
  void create();

  std::filesystem::path folder_, file_;
  Digest identity_;
  int descriptor_ = -1;
  std::int64_t size_ = 0;
};

/// The suffix of shards.
inline constexpr const char* kShardSuffix = ".shard";

}  // namespace quorvane
