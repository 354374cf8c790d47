#pragma once

#include <memory>
#include <optional>

#include "batch/CommandLine.h"
#include "batch/Provenance.h"
#include "batch/RunSoFar.h"
#include "checkpoint/CheckpointFile.h"
#include "model/LatticeModel.h"

namespace quorvane {

/// A run that is ready to begin, or to go on.
struct Job {
  RunSoFar state;
  bool continues = false;
  std::unique_ptr<LatticeModel> model;
  std::unique_ptr<CheckpointFile> checkpoint;  ///< null without checkpoints
  std::optional<Provenance> provenance;        ///< collected only for a record
};

/// Opens the document and changes the model as the options say. Calls watchStopSignals: before reading a
/// regular file, and in any case once the document is open. Throws BatchFailure, SettingError or
/// CheckpointError.
Job startOf(const BatchOptions& options);

/// Reads the checkpoint. Calls watchStopSignals. Throws CheckpointError, or SettingError for the sweeps.
Job continuationOf(const Continuation& continuation);

/// The document as messages name it.
std::string documentName(const std::filesystem::path& document);

}  // namespace quorvane
