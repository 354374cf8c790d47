#include "batch/RunBatch.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <ostream>
#include <string>

#include "batch/Progress.h"
#include "batch/Provenance.h"
#include "batch/Recorder.h"
#include "batch/Results.h"
#include "batch/Streams.h"
#include "document/ModelDocument.h"
#include "document/PartialFiles.h"
#include "engine/f_ran0.h"
#include "measure/MeasureError.h"
#include "process/StopSignals.h"

namespace quorvane {
namespace {

std::string documentName(const std::filesystem::path& document) {
  return isStandardStream(document) ? kStandardInput : nameOf(document);
}

/// Collected only for a record.
using MaybeProvenance = std::optional<Provenance>;

std::unique_ptr<LatticeModel> openModel(const BatchOptions& options, MaybeProvenance& provenance) {
  const Start& start = options.start;
  if (start.seed) processRandomSource.startAnew(*start.seed);
  auto model = std::make_unique<LatticeModel>();
  model->awakeFromNib();
  const std::string text = readInput(options.document);
  if (provenance) provenance->addDocument(text);
  const OpenResult result = readDocument(*model, text);
  if (result.status != OpenStatus::kOpened) throw BatchFailure(documentName(options.document), result.reason);
  changeBeforeRun(*model, start);
  return model;
}

/// Reports all outputs that cannot be written, not only the first. FrameFolder checks its folder itself.
void checkOutputs(const BatchOptions& options, Messages& messages) {
  for (const Result& result : allResults()) {
    const auto& target = options.*result.target;
    try {
      if (target && result.kind == Result::kFile) checkOutput(*target);
    } catch (const std::exception& error) {
      messages.fail(lineOf(error, nameOf(*target)));
    }
  }
}

bool writesToStandardOutput(const BatchOptions& options) {
  return asksFor(options, [&](const Result& result) { return isStandardStream(*(options.*result.target)); });
}

/// Sweeps between two checks of signals and clock: few enough for the largest lattice to respond at once, and
/// enough to make the checks negligible on the smallest.
std::int64_t sweepsAtOnce(const BatchOptions& options, std::int64_t done) {
  constexpr std::int64_t most = 16;
  const std::int64_t untilRecord = options.every - done % options.every;
  return std::min({most, untilRecord, options.sweeps - done});
}

/// False once every requested result has failed.
bool canGiveAnything(const BatchOptions& options, const Recorder& recorder) {
  const auto isLeft = [](const Result& result) { return result.written == Result::kAfterRun; };
  return asksFor(options, isLeft) || recorder.isRecording();
}

/// Makes the sweeps, or fewer if a signal stops the run. Returns the number of sweeps made.
std::int64_t run(LatticeModel& model, const BatchOptions& options, Recorder& recorder) {
  Progress progress(options.sweeps, writesToStandardOutput(options));
  for (std::int64_t done = 0;;) {
    const bool last = done == options.sweeps || stopSignal() != 0;
    if (last || done % options.every == 0) recorder.record(done);
    if (last || !canGiveAnything(options, recorder)) return done;
    progress.show(done);
    const std::int64_t count = sweepsAtOnce(options, done);
    model.runSweeps(count, tracesFor(options));
    done += count;
    recorder.keepUp();
  }
}

/// Writes one result; a failure is reported and does not affect the others.
template <typename Content>
void writeResult(const BatchOptions& options, std::optional<std::filesystem::path> BatchOptions::*result,
                 Messages& messages, MaybeProvenance& provenance, const Content& content) {
  const auto& target = options.*result;
  if (!target) return;
  try {
    const std::string text = content();
    const std::string note = writeOutput(*target, text);
    if (!note.empty()) messages.note(note);
    if (!isStandardStream(*target)) sweepPartialFiles(*target);
    if (provenance) provenance->add(outputOf(options, result, fingerprintOf(text)));
  } catch (const std::exception& error) {
    messages.fail(lineOf(error, nameOf(*target)));
  }
}

/// The number of sweeps made; none if an output cannot be written, in which case nothing runs.
std::optional<std::int64_t> runAndWrite(LatticeModel& model, const BatchOptions& options, Messages& messages,
                                        MaybeProvenance& provenance) {
  checkOutputs(options, messages);
  if (messages.failed()) return std::nullopt;
  Recorder recorder(model, options, messages);
  if (messages.failed()) return std::nullopt;
  const std::int64_t done = run(model, options, recorder);
  writeResult(options, &BatchOptions::output, messages, provenance, [&] { return writeDocument(model); });
  recorder.finish();
  if (provenance)
    for (RecordedOutput& output : recorder.outputs()) provenance->add(std::move(output));
  writeResult(options, &BatchOptions::picture, messages, provenance,
              [&] { return pictureOf(model, options); });
  writeResult(options, &BatchOptions::record, messages, provenance,
              [&] { return toJson(provenance->record(done)); });
  return done;
}

ExitStatus statusOf(int signal) {
  switch (signal) {
    case SIGHUP:
      return kExitHungUp;
    case SIGINT:
      return kExitInterrupted;
    case SIGTERM:
      return kExitTerminated;
    default:
      return kExitDone;
  }
}

ExitStatus openAndRun(const BatchOptions& options, Messages& messages) {
  // A regular file is read quickly. A pipe may block, so until it is read a signal ends the process as usual.
  std::error_code error;
  if (std::filesystem::is_regular_file(options.document, error)) watchStopSignals();
  MaybeProvenance provenance;
  if (options.record) provenance.emplace(options);
  const auto model = openModel(options, provenance);
  watchStopSignals();
  const auto done = runAndWrite(*model, options, messages, provenance);
  const bool stopped = done && *done < options.sweeps && stopSignal() != 0;
  if (stopped)
    messages.note("stopped after " + std::to_string(*done) + " of " + std::to_string(options.sweeps) +
                  " sweeps");
  if (messages.failed()) return kExitFailed;
  return stopped ? statusOf(stopSignal()) : kExitDone;
}

}  // namespace

Traces tracesFor(const BatchOptions& options) {
  return asksFor(options, &Result::showsTraces) ? Traces::kUpdated : Traces::kLeftAlone;
}

ExitStatus runBatch(const BatchOptions& options, std::ostream& err) {
  Messages messages(err);
  try {
    return openAndRun(options, messages);
  } catch (const MeasureError& error) {
    messages.fail("--observables: " + onOneLine(error.what()));
    return kExitUsage;
  } catch (const SettingError& error) {
    messages.fail(onOneLine(error.what()));
    return kExitUsage;
  } catch (const std::exception& error) {
    messages.fail(lineOf(error, documentName(options.document)));
    return kExitFailed;
  }
}

}  // namespace quorvane
