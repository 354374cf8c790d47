#include "batch/Checkpoints.h"

#include <exception>

#include "batch/Streams.h"
#include "engine/f_ran0.h"

namespace quorvane {

Checkpoints::Checkpoints(const LatticeModel& model, const RunSoFar& state, CheckpointFile* file,
                         Messages& messages)
    : model_(model), state_(state), file_(file), messages_(messages), last_(Clock::now()) {
  if (file_) state_.options = withAbsolutePaths(state.options);
}

bool Checkpoints::areDue() const {
  return file_ && Clock::now() - last_ >= std::chrono::duration<double>(state_.options.checkpointEvery);
}

void Checkpoints::write(Recorder& recorder, std::int64_t done) {
  if (!file_) return;
  state_.sweepsDone = done;
  if (carried_) state_.carried = carried_();
  isCurrent_ = recorder.settle(state_);
  if (isCurrent_) replace(state_);
  last_ = Clock::now();
}

void Checkpoints::writeFinished(const Recorder& recorder) {
  if (!file_ || !isCurrent_) return;
  recorder.noteFinished(state_);
  replace(state_);
}

void Checkpoints::replace(const RunSoFar& state) {
  try {
    const auto random = processRandomSource.state();
    if (!random) throw CheckpointError("cannot be written, since the random numbers have another source");
    const SignalsHeld held;
    const std::string note = file_->write(bytesOf(state, model_, *random));
    if (!note.empty()) report(note);
  } catch (const std::exception& error) {
    const std::string name = nameOf(file_->path());
    const bool isOfFile = dynamic_cast<const CheckpointError*>(&error) != nullptr;
    const std::string line = isOfFile ? name + ": " + error.what() : lineOf(error, name);
    if (line != reported_) messages_.fail(line + " (the run goes on without this checkpoint)");
    reported_ = line;
  }
}

void Checkpoints::report(const std::string& reason) {
  const std::string line = nameOf(file_->path()) + ": " + reason;
  if (line != reported_) messages_.note(line);
  reported_ = line;
}

}  // namespace quorvane
