#include "batch/Recorder.h"

#include <string>

#include "batch/Streams.h"
#include "output/LatticePicture.h"
#include "output/Png.h"

namespace quorvane {
namespace {

/// Sweep 0, every whole multiple and, if it is none, the last sweep.
std::int64_t lastRecord(const BatchOptions& options) {
  return options.sweeps / options.every + (options.sweeps % options.every == 0 ? 0 : 1);
}

}  // namespace

std::string pictureOf(const LatticeModel& model, const BatchOptions& options) {
  return encodePng(options.trace ? drawLatticeAndTraces(model, options.scale)
                                 : drawLattice(model, options.scale));
}

Recorder::Recorder(const LatticeModel& model, const BatchOptions& options)
    : model_(model), options_(options) {
  if (options.frames) frames_.emplace(*options.frames, lastRecord(options));
  if (options.populations) {
    table_.emplace(model);
    rows_.emplace(*options.populations);
  }
}

void Recorder::record(std::int64_t sweep) {
  if (frames_) frames_->add(pictureOf(model_, options_));
  if (table_) table_->addRow(model_, sweep);
  lastSweep_ = sweep;
  keepUp();
}

void Recorder::keepUp() {
  if (!table_ || table_->csv().empty()) return;
  // Soon enough for a person or a plot that follows, rare enough not to slow down small lattices.
  constexpr std::chrono::milliseconds interval{100};
  constexpr std::size_t mostBytes = 1 << 16;
  const auto now = std::chrono::steady_clock::now();
  if (now < nextWriting_ && table_->csv().size() < mostBytes) return;
  nextWriting_ = now + interval;
  writeRows();
}

void Recorder::writeRows() {
  rows_->write(table_->csv());
  table_->clear();
  // The start alone is soon made again.
  if (lastSweep_ > 0) rows_->keep();
}

void Recorder::finish() {
  if (!table_) return;
  writeRows();
  rows_->finish();
}

std::filesystem::path Recorder::leaveRows() {
  if (!rows_ || !rows_->isGrowing()) return {};
  try {
    writeRows();
  } catch (const BatchFailure&) {
    // Rows that wait are lost, as they are where a run is killed.
  }
  return rows_->kept();
}

}  // namespace quorvane
