#include "batch/RowWriter.h"

#include <algorithm>
#include <fstream>
#include <utility>

#include "batch/Streams.h"
#include "document/AtomicFile.h"
#include "document/PartialFiles.h"

namespace quorvane {

RowWriter::RowWriter(std::filesystem::path target, std::int64_t beginning)
    : target_(std::move(target)), file_(mayWaitForReader), beginning_(beginning) {
  if (isStandardStream(target_)) return;
  const auto held = signalsHeldFor(target_);
  require(file_.open(target_));
  isFile_ = isGrowing();
}

RowWriter::RowWriter(std::filesystem::path target, RowsBefore before)
    : target_(std::move(target)),
      file_(mayWaitForReader),
      isFile_(true),
      beginning_(before.rows.beginning),
      size_(before.rows.bytes),
      digest_(std::move(before.digest)) {
  const auto held = signalsHeldFor(target_);
  if (before.isPartial) {
    require(file_.openAgain(target_, before.rows.partial, size_));
    return;
  }
  require(file_.open(target_));
  copyFrom(before.source);
}

void RowWriter::copyFrom(const std::filesystem::path& source) {
  std::ifstream in(source, std::ios::binary);
  std::string block(1 << 16, '\0');
  for (std::int64_t left = size_; left > 0;) {
    const auto most = std::min<std::int64_t>(left, static_cast<std::int64_t>(block.size()));
    if (!in.read(block.data(), most)) throw BatchFailure(nameOf(source), "cannot be read");
    require(file_.append(std::string_view(block).substr(0, static_cast<std::size_t>(most))));
    left -= most;
  }
}

void RowWriter::write(std::string_view rows) {
  if (!isFile_) streamed_.add(rows);
  if (isStandardStream(target_)) return writeStandardOutput(rows);
  const auto held = signalsHeldFor(target_);
  require(file_.append(rows));
  const auto skipped =
      std::clamp<std::int64_t>(beginning_ - size_, 0, static_cast<std::int64_t>(rows.size()));
  digest_.add(rows.substr(static_cast<std::size_t>(skipped)));
  size_ += static_cast<std::int64_t>(rows.size());
}

WrittenRows RowWriter::settle() {
  const auto held = signalsHeldFor(target_);
  require(file_.sync());
  file_.keep();
  return {.partial = file_.partial().filename(),
          .bytes = size_,
          .beginning = beginning_,
          .digest = digest_.value()};
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
