#include "RecordCheck.h"

#include "RecordedOptions.h"
#include "batch/Messages.h"
#include "record/Record.h"

namespace quorvane {
namespace {

/// Names in a text may be anything, also escaped: then no line is compared.
std::string checkLine(const std::string& why, std::string_view text) {
  if (why.empty()) return "an empty refusal";
  const std::string line = onOneLine(why);
  if (text.find('\\') != std::string_view::npos) return {};
  for (const char* library : {"json.exception", "basic_string", "std::", "what()"})
    if (line.find(library) != std::string::npos && text.find(library) == std::string_view::npos)
      return "speaks of a library: " + line;
  return {};
}

std::string checkOptionsOf(const Record& record, std::string_view text) {
  try {
    const BatchOptions options = recordedOptions(record);
    if (options.sweeps < 0 || options.every < 1) return "sweeps beyond the limits";
    if (options.scale < 1 || options.scale > kMaxScale) return "scale beyond the limits";
    if (!options.start.seed || *options.start.seed < 1) return "a seed beyond the limits";
    return options.record ? "a record as a result" : "";
  } catch (const RecordError& error) {
    return checkLine(error.what(), text);
  }
}

}  // namespace

std::string checkRecord(std::string_view text) {
  Record record;
  try {
    record = recordFromJson(text);
  } catch (const RecordError& error) {
    return checkLine(error.what(), text);
  }
  const std::string written = toJson(record);
  if (recordFromJson(written) != record) return "written, it reads otherwise";
  return checkOptionsOf(record, text);
}

}  // namespace quorvane
