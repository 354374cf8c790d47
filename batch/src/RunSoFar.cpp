#include "batch/RunSoFar.h"

#include <cmath>
#include <limits>

#include "batch/Results.h"
#include "batch/Streams.h"
#include "checkpoint/Bytes.h"
#include "checkpoint/ModelBytes.h"
#include "checkpoint/RandomBytes.h"

namespace quorvane {
namespace {

constexpr std::int64_t kMostSweeps = std::numeric_limits<std::int64_t>::max();

// In each function the names of the binding are as many as the members, so that a new member does not compile
// until it is here.

const auto transferSetting = [](auto& bytes, auto& setting) {
  auto& [of, name, field, value] = setting;
  auto isType = static_cast<std::uint8_t>(of);
  bytes.within(isType, Setting::kRule, Setting::kType);
  bytes.value(name);
  bytes.value(field);
  bytes.value(value);
  if constexpr (!std::is_const_v<std::remove_reference_t<decltype(setting)>>)
    of = isType == Setting::kType ? Setting::kType : Setting::kRule;
};

const auto transferShare = [](auto& bytes, auto& entry) {
  auto& [type, share] = entry;
  bytes.value(type);
  bytes.value(share);
};

const auto transferSides = [](auto& bytes, auto& sides) {
  auto& [imax, jmax] = sides;
  bytes.within(imax, 1, kMaxSide);
  bytes.within(jmax, 1, kMaxSide);
};

const auto transferSeed = [](auto& bytes, auto& seed) {
  bytes.within(seed, 1, std::numeric_limits<std::int32_t>::max());
};

const auto transferRows = [](auto& bytes, auto& rows) {
  auto& [partial, size, beginning, finished, digest] = rows;
  bytes.value(partial);
  bytes.within(size, 0, kMostSweeps);
  bytes.within(beginning, 0, kMostSweeps);
  bytes.within(finished, -1, kMostSweeps);
  bytes.value(digest);
};

const auto transferFrames = [](auto& bytes, auto& frames) {
  constexpr int mostDigits = 19;
  auto& [number, digits, digest] = frames;
  bytes.within(number, 0, kMostSweeps);
  bytes.within(digits, 1, mostDigits);
  bytes.value(digest);
};

template <typename Bytes, typename AnyStart>
void transferStart(Bytes& bytes, AnyStart& start) {
  auto& [seed, settings, remake, shares] = start;
  bytes.maybe(seed, transferSeed);
  bytes.list(settings, transferSetting);
  bytes.maybe(remake, transferSides);
  bytes.list(shares, transferShare);
}

template <typename Bytes, typename Words>
void transferWords(Bytes& bytes, Words& words) {
  auto& [seed, settings, remake, shares] = words;
  bytes.maybe(seed, transferSeed);
  bytes.list(settings, [](auto& each, auto& setting) { each.value(setting); });
  bytes.value(remake);
  bytes.value(shares);
}

template <typename Bytes, typename Options>
void transferOptions(Bytes& bytes, Options& options) {
  // The command line is in what the record carries.
  auto& [document, start, sweeps, output, populations, measure, observables, lattices, frames, every, picture,
         record, scale, trace, checkpoint, checkpointEvery, startWords, commandLine] = options;
  bytes.value(document);
  transferStart(bytes, start);
  bytes.within(sweeps, 0, kMostSweeps);
  for (auto* target : {&output, &populations, &measure, &lattices, &frames, &picture, &record, &checkpoint})
    bytes.value(*target);
  transferWords(bytes, startWords);
  bytes.value(observables);
  bytes.within(every, 1, kMostSweeps);
  bytes.within(scale, 1, kMaxScale);
  bytes.value(trace);
  bytes.value(checkpointEvery);
}

template <typename Bytes, typename State>
void transferRun(Bytes& bytes, State& state) {
  auto& [options, sweepsDone, records, populations, measure, lattices, frames, measurements, carried] = state;
  transferOptions(bytes, options);
  bytes.within(sweepsDone, 0, options.sweeps);
  bytes.value(records);
  for (auto* rows : {&populations, &measure, &lattices}) bytes.maybe(*rows, transferRows);
  bytes.maybe(frames, transferFrames);
  bytes.value(measurements);
  bytes.value(carried);
}

/// What the command line refuses, and what a run cannot have.
void requireSense(const RunSoFar& state) {
  const BatchOptions& options = state.options;
  const auto require = [](bool condition) {
    ByteReader::require(condition, "its options contradict each other");
  };
  const double seconds = options.checkpointEvery;
  require(options.checkpoint && std::isfinite(seconds) && seconds > 0.0);
  require(options.measure.has_value() == !options.observables.empty());
  require(options.populations.has_value() == state.populations.has_value());
  require(options.measure.has_value() == state.measure.has_value());
  require(options.lattices.has_value() == state.lattices.has_value());
  require(options.frames.has_value() == state.frames.has_value());
  const auto any = [](const Result&) { return true; };
  require(asksFor(options, any));
  require(!asksFor(options, [&](const Result& result) { return !(options.*result.target)->is_absolute(); }));
  require(options.checkpoint->is_absolute());
  const auto multiples = static_cast<std::uint64_t>(state.sweepsDone / options.every);
  require(state.records == multiples + 1 || (state.records == 0 && state.sweepsDone == 0));
}

}  // namespace

BatchOptions withAbsolutePaths(const BatchOptions& options) {
  BatchOptions absolute = options;
  const auto change = [](std::filesystem::path& path) {
    if (!isStandardStream(path)) path = std::filesystem::absolute(path);
  };
  change(absolute.document);
  for (const Result& result : allResults())
    if (auto& target = absolute.*result.target) change(*target);
  if (absolute.checkpoint) change(*absolute.checkpoint);
  return absolute;
}

std::string bytesOf(const RunSoFar& state, const LatticeModel& model, const RandomSource::State& random) {
  ByteWriter bytes;
  transferRun(bytes, state);
  transferRandom(bytes, random);
  transferModel(bytes, model);
  return bytes.take();
}

RunSoFar runSoFarIn(std::string_view content, LatticeModel& model, RandomSource::State& random) {
  ByteReader bytes(content);
  RunSoFar state;
  transferRun(bytes, state);
  requireSense(state);
  transferRandom(bytes, random);
  transferModel(bytes, model);
  bytes.requireEnd();
  ByteReader::require(model.getIMax() > 0 && model.getJMax() > 0, "there is no lattice");
  return state;
}

}  // namespace quorvane
