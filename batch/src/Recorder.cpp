#include "batch/Recorder.h"

#include <utility>

#include "batch/Provenance.h"
#include "output/LatticeArray.h"
#include "output/LatticePicture.h"
#include "output/Png.h"

namespace quorvane {
namespace {

std::optional<Measurements> measurementsFor(const LatticeModel& model, const BatchOptions& options,
                                            const RunSoFar* state) {
  if (!options.measure) return std::nullopt;
  std::optional<Measurements> measurements(std::in_place, options.observables, snapshotOf(model));
  if (state) measurements->restore(state->measurements);
  return measurements;
}

}  // namespace

std::string pictureOf(const LatticeModel& model, const BatchOptions& options) {
  return encodePng(options.trace ? drawLatticeAndTraces(model, options.scale)
                                 : drawLattice(model, options.scale));
}

Recorder::Recorder(const LatticeModel& model, const BatchOptions& options, Messages& messages)
    : Recorder(model, options, nullptr, {}, messages) {}

Recorder::Recorder(const LatticeModel& model, const RunSoFar& state, WrittenBefore before, Messages& messages)
    : Recorder(model, state.options, &state, std::move(before), messages) {}

Recorder::Recorder(const LatticeModel& model, const BatchOptions& options, const RunSoFar* state,
                   WrittenBefore before, Messages& messages)
    : model_(model),
      options_(options),
      messages_(messages),
      measurements_(measurementsFor(model, options, state)),
      table_(model),
      populations_(options.populations, messages, std::move(before.populations)),
      measured_(options.measure, messages, std::move(before.measure)),
      lattices_(options.lattices, messages, std::move(before.lattices),
                [&model](std::int64_t records) { return arrayHeader(records, model); }),
      records_(state ? state->records : 0) {
  withFrames([&] {
    const FrameNames names = FrameNames::forRun(options);
    if (before.frames)
      frames_.emplace(*options.frames, names, std::move(*before.frames));
    else
      frames_.emplace(*options.frames, names);
  });
  // The headings are there already.
  if (populations_.continues()) table_.clear();
  if (!measured_.continues()) measured_.add(0, [&] { return measurements_->csvHeader(); });
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

void Recorder::recordMultiple(std::int64_t sweep) {
  if (sweep % options_.every != 0 || records_ > static_cast<std::uint64_t>(sweep / options_.every)) return;
  record(sweep);
  ++records_;
}

void Recorder::recordLast(std::int64_t sweep) {
  if (sweep % options_.every != 0) record(sweep);
}

bool Recorder::isWhole() const {
  return frames_.has_value() == options_.frames.has_value() && populations_.isWhole() &&
         measured_.isWhole() && lattices_.isWhole();
}

bool Recorder::settle(RunSoFar& state) {
  state.populations = populations_.settle();
  state.measure = measured_.settle();
  state.lattices = lattices_.settle();
  if (!isWhole()) return false;
  if (frames_) state.frames = frames_->written();
  if (measurements_) state.measurements = measurements_->state();
  state.records = records_;
  return true;
}

void Recorder::noteFinished(RunSoFar& state) const {
  if (state.populations) state.populations->finished = populations_.finishedSize();
  if (state.measure) state.measure->finished = measured_.finishedSize();
  if (state.lattices) state.lattices->finished = lattices_.finishedSize();
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
