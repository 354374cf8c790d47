#include "batch/RunBatch.h"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <ostream>
#include <string>

#include "batch/Progress.h"
#include "batch/Recorder.h"
#include "batch/StopSignals.h"
#include "batch/Streams.h"
#include "document/ModelDocument.h"

namespace quorvane {
namespace {

std::unique_ptr<LatticeModel> openModel(const std::filesystem::path& document) {
  auto model = std::make_unique<LatticeModel>();
  model->awakeFromNib();
  const bool fromInput = isStandardStream(document);
  const OpenResult result =
      fromInput ? readDocument(*model, readStandardInput()) : openDocument(*model, document);
  const std::string name = fromInput ? "standard input" : document.string();
  if (result.status == OpenStatus::kUnreadable)
    throw BatchFailure(name, "cannot be read, or is not plain ASCII text");
  if (result.status != OpenStatus::kOpened) throw BatchFailure(name, result.message);
  return model;
}

std::array<std::optional<std::filesystem::path>, 3> targetsOf(const BatchOptions& options) {
  return {options.output, options.populations, options.picture};
}

void checkOutputs(const BatchOptions& options) {
  for (const auto& target : targetsOf(options))
    if (target) checkOutput(*target);
}

bool writesToStandardOutput(const BatchOptions& options) {
  const auto targets = targetsOf(options);
  return std::any_of(targets.begin(), targets.end(),
                     [](const auto& target) { return target && isStandardStream(*target); });
}

/// Sweeps that are made between two looks at signals and at the clock: few enough for the largest lattice to
/// answer at once, and many enough for the smallest to lose no time with it.
std::int64_t sweepsAtOnce(const BatchOptions& options, std::int64_t done) {
  constexpr std::int64_t most = 16;
  const std::int64_t untilRecord = options.every - done % options.every;
  return std::min({most, untilRecord, options.sweeps - done});
}

/// Only pictures show the traces.
Traces tracesFor(const BatchOptions& options) {
  return options.picture || options.frames ? Traces::kUpdated : Traces::kLeftAlone;
}

/// Makes the sweeps, or fewer where a signal asks for it. The number of sweeps made.
std::int64_t run(LatticeModel& model, const BatchOptions& options, Recorder& recorder) {
  Progress progress(options.sweeps, writesToStandardOutput(options));
  for (std::int64_t done = 0;;) {
    const bool last = done == options.sweeps || stopSignal() != 0;
    if (last || done % options.every == 0) recorder.record(done);
    if (last) return done;
    progress.show(done);
    const std::int64_t count = sweepsAtOnce(options, done);
    model.runSweeps(count, tracesFor(options));
    done += count;
    recorder.keepUp();
  }
}

void writeResults(const LatticeModel& model, const BatchOptions& options, Recorder& recorder) {
  // Made first: nothing is written unless everything could be computed.
  const std::string document = options.output ? writeDocument(model) : std::string();
  const std::string picture = options.picture ? pictureOf(model, options) : std::string();
  if (options.output) writeOutput(*options.output, document);
  recorder.finish();
  if (options.picture) writeOutput(*options.picture, picture);
}

/// Which file a failure is about, and why.
std::string lineOf(const std::exception& error, const BatchOptions& options) {
  if (dynamic_cast<const BatchFailure*>(&error) != nullptr) return error.what();
  return options.document.string() + ": " + error.what();
}

std::string whereRowsAre(const std::filesystem::path& left) {
  return left.empty() ? "" : " (the rows so far are in " + left.string() + ")";
}

/// The number of sweeps made.
std::int64_t runAndWrite(LatticeModel& model, const BatchOptions& options) {
  Recorder recorder(model, options);
  try {
    const std::int64_t done = run(model, options, recorder);
    writeResults(model, options, recorder);
    return done;
  } catch (const std::exception& error) {
    throw BatchFailure(lineOf(error, options) + whereRowsAre(recorder.leaveRows()));
  }
}

ExitStatus openAndRun(const BatchOptions& options, std::ostream& err) {
  const auto model = openModel(options.document);
  watchStopSignals();
  checkOutputs(options);
  const std::int64_t done = runAndWrite(*model, options);
  if (done == options.sweeps) return kExitDone;
  err << "quorvane-batch: stopped after " << done << " of " << options.sweeps << " sweeps\n";
  return stopSignal() == SIGTERM ? kExitTerminated : kExitInterrupted;
}

}  // namespace

ExitStatus runBatch(const BatchOptions& options, std::ostream& err) {
  try {
    return openAndRun(options, err);
  } catch (const std::exception& error) {
    err << "quorvane-batch: " << lineOf(error, options) << '\n';
    return kExitFailed;
  }
}

}  // namespace quorvane
