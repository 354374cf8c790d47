#include "batch/RecordedRows.h"

#include <utility>

namespace quorvane {

RecordedRows::RecordedRows(std::optional<std::filesystem::path> target, Messages& messages,
                           std::optional<RowsBefore> before, Beginning beginning)
    : target_(std::move(target)), messages_(messages), beginning_(std::move(beginning)) {
  if (!target_) return;
  guarded([&] {
    const std::string first = beginning_ ? beginning_(0) : "";
    if (before) {
      numRows_ = before->records;
      continues_ = before->rows.bytes > 0;
    }
    if (before)
      writer_.emplace(*target_, std::move(*before));
    else
      writer_.emplace(*target_, static_cast<std::int64_t>(first.size()));
    if (beginning_ && !writer_->isGrowing())
      throw BatchFailure(nameOf(*target_), "is no regular file, and its beginning is written again");
    if (!continues_) buffer_ = first;
  });
}

void RecordedRows::guarded(const std::function<void()>& work) {
  try {
    work();
  } catch (const std::exception& error) {
    messages_.fail(lineOf(error, nameOf(*target_)) + whereTheyAre());
    writer_.reset();
  }
}

void RecordedRows::add(std::int64_t sweep, const std::function<std::string()>& make) {
  if (!writer_) return;
  lastSweep_ = sweep;
  guarded([&] {
    buffer_ += make();
    ++numRows_;
  });
  keepUp();
}

bool RecordedRows::areDue() const {
  constexpr std::size_t mostBytes = 1 << 16;
  return writer_ && !buffer_.empty() &&
         (buffer_.size() >= mostBytes || std::chrono::steady_clock::now() >= nextWriting_);
}

void RecordedRows::keepUp() {
  // Short for a person who watches the rows, long enough not to slow down small lattices.
  constexpr std::chrono::milliseconds interval{100};
  if (!areDue()) return;
  nextWriting_ = std::chrono::steady_clock::now() + interval;
  guarded([&] { write(); });
}

void RecordedRows::write() {
  writer_->write(buffer_);
  buffer_.clear();
  if (beginning_) writer_->overwriteBeginning(beginning_(numRows_));
  // A file with only the row of sweep 0 is not worth keeping.
  if (lastSweep_ > 0) writer_->keep();
}

std::optional<WrittenRows> RecordedRows::settle() {
  std::optional<WrittenRows> rows;
  if (writer_)
    guarded([&] {
      write();
      rows = writer_->settle();
    });
  return rows;
}

void RecordedRows::finish() {
  if (!writer_) return;
  guarded([&] {
    write();
    if (const std::string note = writer_->finish(); !note.empty()) messages_.note(note);
    finishedSize_ = writer_->size();
  });
}

std::optional<Fingerprint> RecordedRows::content() {
  if (!writer_) return std::nullopt;
  std::optional<Fingerprint> content;
  guarded([&] { content = writer_->content(); });
  return content;
}

/// The end of the message about rows that failed. First tries to write the buffered rows.
std::string RecordedRows::whereTheyAre() {
  if (!writer_ || !writer_->isGrowing()) return {};
  try {
    write();
  } catch (const std::exception&) {
    // The buffered rows are lost, as when the run is killed.
  }
  const auto kept = writer_->kept();
  return kept.empty() ? "" : kRowsSoFar + nameOf(kept) + ")";
}

}  // namespace quorvane
