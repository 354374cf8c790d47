#include "CheckpointCheck.h"

#include <algorithm>
#include <memory>

#include "batch/RunSoFar.h"
#include "batch/Targets.h"
#include "checkpoint/CheckpointError.h"
#include "checkpoint/SealedBytes.h"
#include "document/ModelDocument.h"
#include "engine/f_ran0.h"
#include "measure/MeasureError.h"
#include "measure/Measurements.h"
#include "output/LatticeArray.h"
#include "output/PopulationTable.h"

namespace quorvane {
namespace {

/// Bytes before the content: magic, version and length.
constexpr std::size_t kHeader = 20;
constexpr std::size_t kChecksum = 16;

std::string wrongLine(const CheckpointError& error) {
  const std::string line = error.what();
  return line.empty() || line.find('\n') != std::string::npos ? "no line: " + line : "";
}

/// Everything that a continuation does with a model.
void use(LatticeModel& model, const RunSoFar& run) {
  static_cast<void>(conflictOf(run.options));
  model.runSweeps(2);
  static_cast<void>(writeDocument(model));
  static_cast<void>(arrayHeader(1, model) + arrayRecord(model));
  PopulationTable table(model);
  table.addRow(model, run.sweepsDone);
  if (!run.options.measure) return;
  try {
    Measurements measurements(run.options.observables, snapshotOf(model));
    measurements.restore(run.measurements);
    static_cast<void>(measurements.csvRow(run.sweepsDone, snapshotOf(model)));
  } catch (const MeasureError&) {
    // Refused in a line, as the command line refuses it.
  }
}

std::string checkContent(std::string_view content) {
  static const auto model = std::make_unique<LatticeModel>();
  try {
    RandomSource::State random;
    const RunSoFar run = runSoFarIn(content, *model, random);
    if (bytesOf(run, *model, random) != content) return "written again, it is another";
    processRandomSource.goOnFrom(random);
    use(*model, run);
    return {};
  } catch (const CheckpointError& error) {
    return wrongLine(error);
  }
}

}  // namespace

std::string checkCheckpoint(std::string_view file) {
  try {
    return checkContent(contentOfSealed(file));
  } catch (const CheckpointError& error) {
    if (std::string wrong = wrongLine(error); !wrong.empty()) return wrong;
  }
  if (file.size() < kHeader + kChecksum) return {};
  return checkContent(file.substr(kHeader, file.size() - kHeader - kChecksum));
}

}  // namespace quorvane
