#pragma once

#include <filesystem>
#include <optional>

#include "batch/Messages.h"
#include "batch/RunSoFar.h"
#include "checkpoint/Digest.h"

/// What an interrupted run has written, as its continuation finds it.
namespace quorvane {

/// Rows that are as the checkpoint says. There may be more behind them, which the continuation makes again.
struct RowsBefore {
  WrittenRows rows;
  std::filesystem::path source;  ///< their file; empty if there are no rows yet
  bool isPartial = false;        ///< it is the growing file, not the target
  std::int64_t records = 0;
  DigestOf digest;
};

/// Frames that are as the checkpoint says.
struct FramesBefore {
  WrittenFrames frames;
  std::int64_t behind = 0;  ///< the number of the last file behind them, plus 1, or that of the frames
  DigestOf digest;
};

struct WrittenBefore {
  std::optional<RowsBefore> populations, measure, lattices;
  std::optional<FramesBefore> frames;
};

/// Looks at all that was written, without changing anything. Whatever is missing or was changed is reported
/// as a failure, one line each.
WrittenBefore findWritten(const RunSoFar& state, Messages& messages);

}  // namespace quorvane
