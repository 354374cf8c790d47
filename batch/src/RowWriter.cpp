#include "batch/RowWriter.h"

#include <utility>

#include "batch/StopSignals.h"
#include "batch/Streams.h"

namespace quorvane {

RowWriter::RowWriter(std::filesystem::path target) : target_(std::move(target)) {
  if (isStandardStream(target_)) return;
  const auto held = signalsHeldFor(target_);
  require(file_.open(target_));
}

void RowWriter::write(std::string_view rows) {
  if (isStandardStream(target_)) return writeOutput(target_, rows);
  const auto held = signalsHeldFor(target_);
  require(file_.append(rows));
}

void RowWriter::finish() {
  if (isStandardStream(target_)) return;
  const auto held = signalsHeldFor(target_);
  require(file_.finish());
}

void RowWriter::require(std::error_code error) const {
  if (error) throw BatchFailure(target_.string(), error.message());
}

}  // namespace quorvane
