#include "Job.h"

#include <filesystem>
#include <string>

#include "batch/Messages.h"
#include "batch/Streams.h"
#include "batch/Targets.h"
#include "checkpoint/CheckpointError.h"
#include "document/ModelDocument.h"
#include "engine/f_ran0.h"
#include "process/StopSignals.h"
#include "record/Record.h"

namespace quorvane {
namespace {

std::unique_ptr<LatticeModel> openModel(const BatchOptions& options, std::optional<Provenance>& provenance) {
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

/// A copy would go on with the files of the checkpoint that it was made from.
void requireItsPlace(const CheckpointFile& file, const RunSoFar& state) {
  std::error_code error;
  if (!std::filesystem::equivalent(file.path(), *state.options.checkpoint, error))
    throw CheckpointError("was moved or copied, the run wrote it as " + nameOf(*state.options.checkpoint));
}

/// The state for the sweeps that were asked for.
void setSweeps(RunSoFar& state, const Continuation& continuation) {
  if (!continuation.sweeps) return;
  if (*continuation.sweeps < state.sweepsDone)
    throw SettingError("--sweeps: " + std::to_string(*continuation.sweeps) + " are fewer than the " +
                       std::to_string(state.sweepsDone) + " that " + nameOf(continuation.checkpoint) +
                       " has done");
  state.options.sweeps = *continuation.sweeps;
}

/// The record goes on from what was known when the checkpoint was written.
Provenance provenanceOf(const RunSoFar& state) {
  try {
    return {state.options, startFromJson(state.carried)};
  } catch (const RecordError& error) {
    throw CheckpointError(std::string("is damaged (") + error.what() + ")");
  }
}

}  // namespace

std::string documentName(const std::filesystem::path& document) {
  return isStandardStream(document) ? kStandardInput : nameOf(document);
}

Job startOf(const BatchOptions& options) {
  // A regular file is read quickly. A pipe may block, so until it is read a signal ends the process as usual.
  std::error_code error;
  if (std::filesystem::is_regular_file(options.document, error)) watchStopSignals();
  Job job;
  job.state.options = options;
  if (options.record) job.provenance.emplace(options);
  job.model = openModel(options, job.provenance);
  watchStopSignals();
  if (!options.checkpoint) return job;
  job.checkpoint = std::make_unique<CheckpointFile>(*options.checkpoint);
  job.checkpoint->claim();
  if (!processRandomSource.state())
    throw CheckpointError("cannot be written, since this C library has random numbers of its own");
  return job;
}

Job continuationOf(const Continuation& continuation) {
  watchStopSignals();
  Job job;
  job.continues = true;
  job.checkpoint = std::make_unique<CheckpointFile>(continuation.checkpoint);
  job.model = std::make_unique<LatticeModel>();
  RandomSource::State random;
  job.state = runSoFarIn(job.checkpoint->read(), *job.model, random);
  processRandomSource.goOnFrom(random);
  requireItsPlace(*job.checkpoint, job.state);
  if (const auto conflict = conflictOf(job.state.options))
    throw CheckpointError("is damaged (" + *conflict + ")");
  setSweeps(job.state, continuation);
  if (job.state.options.record) job.provenance = provenanceOf(job.state);
  return job;
}

}  // namespace quorvane
