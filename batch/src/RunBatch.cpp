#include "batch/RunBatch.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <utility>

#include "Job.h"
#include "batch/Checkpoints.h"
#include "batch/Progress.h"
#include "batch/Recorder.h"
#include "batch/Results.h"
#include "batch/Streams.h"
#include "batch/WrittenBefore.h"
#include "checkpoint/CheckpointError.h"
#include "document/ModelDocument.h"
#include "document/PartialFiles.h"
#include "measure/MeasureError.h"
#include "process/StopSignals.h"

namespace quorvane {
namespace {

/// Reports all outputs that cannot be written, not only the first. FrameFolder checks its folder itself.
void checkOutputs(const BatchOptions& options, Messages& messages) {
  const auto check = [&](const std::filesystem::path& target) {
    try {
      checkOutput(target);
      if (options.checkpoint) requireRegular(target);
    } catch (const std::exception& error) {
      messages.fail(lineOf(error, nameOf(target)));
    }
  };
  for (const Result& result : allResults())
    if (const auto& target = options.*result.target; target && result.kind == Result::kFile) check(*target);
  if (options.checkpoint) check(*options.checkpoint);
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

/// Makes the sweeps that are left, or fewer if a signal stops the run. Returns the number of sweeps made
/// since the beginning.
std::int64_t run(LatticeModel& model, const BatchOptions& options, std::int64_t done, Recorder& recorder,
                 Checkpoints& checkpoints) {
  Progress progress(options.sweeps, writesToStandardOutput(options), done);
  // Before the first record, so that a run that is killed now can be continued or started again.
  checkpoints.write(recorder, done);
  for (;;) {
    const bool last = done == options.sweeps || stopSignal() != 0;
    recorder.recordMultiple(done);
    if (last || checkpoints.areDue()) checkpoints.write(recorder, done);
    if (last) recorder.recordLast(done);
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
void writeResult(Job& job, std::optional<std::filesystem::path> BatchOptions::*result, Messages& messages,
                 const Content& content) {
  const auto& target = job.state.options.*result;
  if (!target) return;
  try {
    const std::string text = content();
    const std::string note = writeOutput(*target, text);
    if (!note.empty()) messages.note(note);
    if (!isStandardStream(*target)) sweepPartialFiles(*target);
    if (job.provenance) job.provenance->add(outputOf(job.state.options, result, fingerprintOf(text)));
  } catch (const std::exception& error) {
    messages.fail(lineOf(error, nameOf(*target)));
  }
}

/// What records the run; none if an output cannot be written or is not as it was.
std::unique_ptr<Recorder> recorderFor(const Job& job, Messages& messages) {
  const BatchOptions& options = job.state.options;
  checkOutputs(options, messages);
  WrittenBefore before;
  if (job.continues) before = findWritten(job.state, messages);
  if (messages.failed()) return nullptr;
  return job.continues ? std::make_unique<Recorder>(*job.model, job.state, std::move(before), messages)
                       : std::make_unique<Recorder>(*job.model, options, messages);
}

/// The number of sweeps made; none if an output cannot be written, in which case nothing runs.
std::optional<std::int64_t> runAndWrite(Job& job, Messages& messages) {
  LatticeModel& model = *job.model;
  const BatchOptions& options = job.state.options;
  const auto recorder = recorderFor(job, messages);
  if (messages.failed()) return std::nullopt;
  Checkpoints checkpoints(model, job.state, job.checkpoint.get(), messages);
  if (job.provenance) checkpoints.carry([&] { return toJson(job.provenance->start()); });
  const std::int64_t done = run(model, options, job.state.sweepsDone, *recorder, checkpoints);
  writeResult(job, &BatchOptions::output, messages, [&] { return writeDocument(model); });
  recorder->finish();
  if (job.provenance)
    for (RecordedOutput& output : recorder->outputs()) job.provenance->add(std::move(output));
  writeResult(job, &BatchOptions::picture, messages, [&] { return pictureOf(model, options); });
  writeResult(job, &BatchOptions::record, messages, [&] { return toJson(job.provenance->record(done)); });
  checkpoints.writeFinished(*recorder);
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

std::string stopLine(std::int64_t done, const BatchOptions& options) {
  const std::string line =
      "stopped after " + std::to_string(done) + " of " + std::to_string(options.sweeps) + " sweeps";
  return options.checkpoint ? line + ", --continue " + nameOf(*options.checkpoint) + " goes on" : line;
}

ExitStatus carryOut(Job& job, Messages& messages) {
  const BatchOptions& options = job.state.options;
  const auto done = runAndWrite(job, messages);
  const bool stopped = done && *done < options.sweeps && stopSignal() != 0;
  if (stopped) messages.note(stopLine(*done, options));
  if (messages.failed()) return kExitFailed;
  return stopped ? statusOf(stopSignal()) : kExitDone;
}

/// Carries out the job that make gives. input: the file it is read from, and how messages name it.
template <typename Make>
ExitStatus carryOutReporting(const Make& make, const std::string& input,
                             const std::optional<std::filesystem::path>& checkpoint, std::ostream& err) {
  Messages messages(err);
  try {
    Job job = make();
    return carryOut(job, messages);
  } catch (const MeasureError& error) {
    messages.fail("--observables: " + onOneLine(error.what()));
    return kExitUsage;
  } catch (const SettingError& error) {
    messages.fail(onOneLine(error.what()));
    return kExitUsage;
  } catch (const CheckpointError& error) {
    messages.fail(nameOf(*checkpoint) + ": " + error.what());
    return kExitFailed;
  } catch (const std::exception& error) {
    messages.fail(lineOf(error, input));
    return kExitFailed;
  }
}

}  // namespace

Traces tracesFor(const BatchOptions& options) {
  return asksFor(options, &Result::showsTraces) ? Traces::kUpdated : Traces::kLeftAlone;
}

ExitStatus runBatch(const BatchOptions& options, std::ostream& err) {
  return carryOutReporting([&] { return startOf(options); }, documentName(options.document),
                           options.checkpoint, err);
}

ExitStatus continueBatch(const Continuation& continuation, std::ostream& err) {
  return carryOutReporting([&] { return continuationOf(continuation); }, nameOf(continuation.checkpoint),
                           continuation.checkpoint, err);
}

}  // namespace quorvane
