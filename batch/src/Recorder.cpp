#include "batch/Recorder.h"

#include <string>

#include "batch/Streams.h"
#include "output/LatticePicture.h"
#include "output/Png.h"

namespace quorvane {
namespace {

/// The index of the last record: sweep 0 is the first; the last sweep is recorded even if it is no multiple.
std::int64_t lastRecord(const BatchOptions& options) {
  return options.sweeps / options.every + (options.sweeps % options.every == 0 ? 0 : 1);
}

}  // namespace

std::string pictureOf(const LatticeModel& model, const BatchOptions& options) {
  return encodePng(options.trace ? drawLatticeAndTraces(model, options.scale)
                                 : drawLattice(model, options.scale));
}

Recorder::Recorder(const LatticeModel& model, const BatchOptions& options, Messages& messages)
    : model_(model), options_(options), messages_(messages), table_(model) {
  withFrames([&] { frames_.emplace(*options.frames, lastRecord(options)); });
  withRows([&] { rows_.emplace(*options.populations); });
}

template <typename Work>
void Recorder::withFrames(const Work& work) {
  if (!options_.frames) return;
  try {
    work();
  } catch (const std::exception& error) {
    messages_.fail(lineOf(error, nameOf(*options_.frames)));
    frames_.reset();
  }
}

template <typename Work>
void Recorder::withRows(const Work& work) {
  if (!options_.populations) return;
  try {
    work();
  } catch (const std::exception& error) {
    messages_.fail(lineOf(error, nameOf(*options_.populations)) + whereRowsAre());
    rows_.reset();
  }
}

void Recorder::record(std::int64_t sweep) {
  lastSweep_ = sweep;
  withFrames([&] {
    if (frames_) frames_->add(pictureOf(model_, options_));
  });
  withRows([&] {
    if (rows_) table_.addRow(model_, sweep);
  });
  keepUp();
}

bool Recorder::rowsAreDue() const {
  constexpr std::size_t mostBytes = 1 << 16;
  return rows_ && !table_.csv().empty() &&
         (table_.csv().size() >= mostBytes || std::chrono::steady_clock::now() >= nextWriting_);
}

void Recorder::keepUp() {
  // Short for a person who watches the rows, long enough not to slow down small lattices.
  constexpr std::chrono::milliseconds interval{100};
  if (!rowsAreDue()) return;
  nextWriting_ = std::chrono::steady_clock::now() + interval;
  withRows([&] { writeRows(); });
}

void Recorder::writeRows() {
  rows_->write(table_.csv());
  table_.clear();
  // A file with only the row of sweep 0 is not worth keeping.
  if (lastSweep_ > 0) rows_->keep();
}

void Recorder::finish() {
  withRows([&] {
    if (!rows_) return;
    writeRows();
    if (const std::string note = rows_->finish(); !note.empty()) messages_.note(note);
  });
}

/// The end of the message about rows that failed. First tries to write the buffered rows.
std::string Recorder::whereRowsAre() {
  if (!rows_ || !rows_->isGrowing()) return {};
  try {
    writeRows();
  } catch (const std::exception&) {
    // The buffered rows are lost, as when the run is killed.
  }
  const auto kept = rows_->kept();
  return kept.empty() ? "" : " (the rows so far are in " + nameOf(kept) + ")";
}

}  // namespace quorvane
