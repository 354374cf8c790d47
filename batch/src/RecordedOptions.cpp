#include "RecordedOptions.h"

#include "batch/Messages.h"
#include "batch/Results.h"

namespace quorvane {
namespace {

void addOutput(BatchOptions& options, const RecordedOutput& output) {
  const Result* result = resultOf(output.option);
  if (!result || result->written == Result::kAfterAllOthers)
    throw RecordError("has a result of the option " + inQuotes(output.option) + ", which is not known");
  const bool isFolder = std::holds_alternative<std::vector<RecordedFrame>>(output.content);
  if (isFolder != (result->kind == Result::kFolder))
    throw RecordError("has " + std::string(isFolder ? "frames" : "a file") + " as the result of " +
                      output.option);
  auto& target = options.*result->target;
  if (target) throw RecordError("has two results of " + output.option);
  target = output.path;
}

Start startIn(const Record& record) {
  try {
    return startFrom({.seed = static_cast<int>(record.seed),
                      .settings = record.settings,
                      .remake = record.remake,
                      .fill = record.fill});
  } catch (const SettingError& error) {
    throw RecordError(error.what());
  }
}

}  // namespace

BatchOptions recordedOptions(const Record& record) {
  BatchOptions options;
  options.sweeps = record.sweepsDone;
  options.every = record.every;
  if (record.scale > kMaxScale) throw RecordError("field scale: is more than " + std::to_string(kMaxScale));
  options.scale = static_cast<int>(record.scale);
  options.trace = record.trace;
  options.start = startIn(record);
  for (const RecordedOutput& output : record.outputs) addOutput(options, output);
  if (record.outputs.empty()) throw RecordError("has no results");
  if (options.measure && !record.observables)
    throw RecordError("has a result of --measure and no observables");
  if (options.measure) options.observables = *record.observables;
  return options;
}

}  // namespace quorvane
