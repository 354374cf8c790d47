#include "batch/Recorder.h"

#include <utility>

#include "batch/Provenance.h"
#include "output/LatticeArray.h"
#include "output/LatticePicture.h"
#include "output/Png.h"

namespace quorvane {
namespace {

/// The index of the last record: sweep 0 is the first; the last sweep is recorded even if it is no multiple.
std::int64_t lastRecord(const BatchOptions& options) {
  return options.sweeps / options.every + (options.sweeps % options.every == 0 ? 0 : 1);
}

std::optional<Measurements> measurementsFor(const LatticeModel& model, const BatchOptions& options) {
  if (!options.measure) return std::nullopt;
  return std::optional<Measurements>(std::in_place, options.observables, snapshotOf(model));
}

}  // namespace

std::string pictureOf(const LatticeModel& model, const BatchOptions& options) {
  return encodePng(options.trace ? drawLatticeAndTraces(model, options.scale)
                                 : drawLattice(model, options.scale));
}

Recorder::Recorder(const LatticeModel& model, const BatchOptions& options, Messages& messages)
    : model_(model),
      options_(options),
      messages_(messages),
      measurements_(measurementsFor(model, options)),
      table_(model),
      populations_(options.populations, messages),
      measured_(options.measure, messages),
      lattices_(options.lattices, messages,
                [&model](std::int64_t records) { return arrayHeader(records, model); }) {
  withFrames([&] { frames_.emplace(*options.frames, lastRecord(options)); });
  measured_.add(0, [&] { return measurements_->csvHeader(); });
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

void Recorder::record(std::int64_t sweep) {
  withFrames([&] {
    if (frames_) frames_->add(pictureOf(model_, options_));
  });
  populations_.add(sweep, [&] {
    table_.addRow(model_, sweep);
    std::string rows = table_.csv();
    table_.clear();
    return rows;
  });
  measured_.add(sweep, [&] { return measurements_->csvRow(sweep, snapshotOf(model_)); });
  lattices_.add(sweep, [&] { return arrayRecord(model_); });
}

void Recorder::keepUp() {
  populations_.keepUp();
  measured_.keepUp();
  lattices_.keepUp();
}

void Recorder::finish() {
  populations_.finish();
  measured_.finish();
  lattices_.finish();
}

std::vector<RecordedOutput> Recorder::outputs() {
  std::vector<RecordedOutput> outputs;
  const auto add = [&](std::optional<std::filesystem::path> BatchOptions::*target, RecordedRows& rows) {
    if (auto content = rows.content()) outputs.push_back(outputOf(options_, target, *std::move(content)));
  };
  add(&BatchOptions::populations, populations_);
  add(&BatchOptions::measure, measured_);
  add(&BatchOptions::lattices, lattices_);
  withFrames([&] {
    if (frames_) outputs.push_back(outputOf(options_, &BatchOptions::frames, frames_->content()));
  });
  return outputs;
}

}  // namespace quorvane
