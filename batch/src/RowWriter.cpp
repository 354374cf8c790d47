#include "batch/RowWriter.h"

#include <utility>

#include "batch/Streams.h"
#include "document/AtomicFile.h"
#include "document/PartialFiles.h"

namespace quorvane {

RowWriter::RowWriter(std::filesystem::path target) : target_(std::move(target)), file_(mayWaitForReader) {
  if (isStandardStream(target_)) return;
  const auto held = signalsHeldFor(target_);
  require(file_.open(target_));
  isFile_ = isGrowing();
}

void RowWriter::write(std::string_view rows) {
  if (!isFile_) streamed_.add(rows);
  if (isStandardStream(target_)) return writeStandardOutput(rows);
  const auto held = signalsHeldFor(target_);
  require(file_.append(rows));
}

Fingerprint RowWriter::content() const { return isFile_ ? fingerprintOfFile(target_) : streamed_.soFar(); }

void RowWriter::overwriteBeginning(std::string_view text) {
  const auto held = signalsHeldFor(target_);
  require(file_.overwriteBeginning(text));
}

std::string RowWriter::finish() {
  if (isStandardStream(target_)) return {};
  const auto held = signalsHeldFor(target_);
  require(file_.finish());
  sweepPartialFiles(target_);
  return file_.wroteInPlace() ? nameOf(target_) + ": " + kNoteInPlace : "";
}

void RowWriter::require(std::error_code error) const {
  if (error) throw BatchFailure(nameOf(target_), error.message());
}

}  // namespace quorvane
