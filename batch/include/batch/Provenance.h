#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string_view>

#include "batch/CommandLine.h"
#include "record/Record.h"

namespace quorvane {

/// A requested result and what was written to it.
RecordedOutput outputOf(const BatchOptions& options,
                        std::optional<std::filesystem::path> BatchOptions::*result,
                        std::variant<Fingerprint, std::vector<RecordedFrame>> content);

/// What a record says about a run, collected from its start. Draws are those of the process's source from
/// then on.
class Provenance {
 public:
  /// A run that starts now.
  explicit Provenance(const BatchOptions& options);
  /// A run that is continued now. before: what start gave when it was left.
  Provenance(BatchOptions options, RunStart before);

  /// The document as it was read.
  void addDocument(std::string_view text);
  /// A result that is whole. Its path becomes that of the command line, if a checkpoint has made it absolute.
  void add(RecordedOutput output);

  /// With the seconds and the draws so far.
  RunStart start() const;
  Record record(std::int64_t sweepsDone) const;

 private:
  using Clock = std::chrono::steady_clock;

  BatchOptions options_;
  RunStart start_;
  Clock::time_point begin_ = Clock::now();
  std::int64_t drawsBefore_;
  std::vector<RecordedOutput> outputs_;
};

}  // namespace quorvane
