#include <algorithm>

#include "JsonFields.h"
#include "record/Record.h"
#include "record/Time.h"

namespace quorvane {
namespace {

Fingerprint fingerprintIn(JsonFields& fields) {
  constexpr std::size_t digits = 64;
  Fingerprint content{fields.text("sha256"), fields.whole("bytes", 0)};
  const auto isDigit = [](char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f'); };
  if (content.sha256.size() != digits || !std::all_of(content.sha256.begin(), content.sha256.end(), isDigit))
    fields.refuse("sha256", "is no hash of 64 digits 0 to 9 and a to f");
  return content;
}

Program programIn(JsonFields fields) {
  Program program{fields.text("name"), fields.text("version"), fields.text("commit"), fields.text("compiler"),
                  fields.text("cLibrary")};
  fields.finish();
  return program;
}

Machine machineIn(JsonFields fields) {
  Machine machine{fields.text("processor"), 1};
  machine.cores = static_cast<int>(fields.whole("cores", 1, std::numeric_limits<int>::max()));
  fields.finish();
  return machine;
}

RecordedDocument documentIn(JsonFields fields) {
  RecordedDocument document{fields.text("path"), fingerprintIn(fields)};
  fields.finish();
  return document;
}

std::vector<RecordedFrame> framesIn(JsonFields& fields) {
  std::vector<RecordedFrame> frames;
  fields.each("frames", [&](JsonFields frame) {
    frames.push_back({frame.text("name"), fingerprintIn(frame)});
    frame.finish();
  });
  return frames;
}

RecordedOutput outputIn(JsonFields fields) {
  RecordedOutput output{fields.text("option"), fields.text("path"), {}};
  if (fields.has("frames"))
    output.content = framesIn(fields);
  else
    output.content = fingerprintIn(fields);
  fields.finish();
  return output;
}

RunStart startIn(JsonFields& fields) {
  RunStart start;
  start.program = programIn(fields.object("program"));
  start.machine = machineIn(fields.object("machine"));
  start.started = fields.text("started");
  if (!isUtcText(start.started)) fields.refuse("started", "is no time such as 2026-11-22T23:40:00Z");
  start.seconds = fields.real("seconds");
  start.drawsMade = fields.whole("drawsMade", 0);
  start.commandLine = fields.texts("commandLine");
  start.workingFolder = fields.text("workingFolder");
  start.document = documentIn(fields.object("document"));
  return start;
}

/// Before all other fields, since another format may have others.
void requireFormat(JsonFields& fields) {
  if (!fields.has("format") || fields.text("format") != "quorvane-record")
    throw RecordError("is no record of a run (its format is not quorvane-record)");
  const std::int64_t version = fields.whole("formatVersion", 1);
  if (version > kRecordFormat)
    throw RecordError("is a record of format " + std::to_string(version) + ", and this program reads only " +
                      std::to_string(kRecordFormat));
}

void readSweeps(JsonFields fields, Record& record) {
  record.sweepsAsked = fields.whole("asked", 0);
  record.sweepsDone = fields.whole("done", 0);
  if (record.sweepsDone > record.sweepsAsked) fields.refuse("done", "is more than were asked for");
  fields.finish();
}

}  // namespace

RunStart startFromJson(std::string_view text) {
  const nlohmann::json json = parsedJson(text);
  JsonFields fields(json, "");
  RunStart start = startIn(fields);
  fields.finish();
  return start;
}

Record recordFromJson(std::string_view text) {
  const nlohmann::json json = parsedJson(text);
  JsonFields fields(json, "");
  requireFormat(fields);
  Record record;
  record.start = startIn(fields);
  record.seed = fields.whole("seed", 1, std::numeric_limits<std::int32_t>::max());
  record.settings = fields.texts("settings");
  record.remake = fields.textOrNull("remake");
  record.fill = fields.textOrNull("fill");
  record.observables = fields.textOrNull("observables");
  record.every = fields.whole("every", 1);
  record.scale = fields.whole("scale", 1);
  record.trace = fields.flag("trace");
  readSweeps(fields.object("sweeps"), record);
  fields.each("outputs", [&](JsonFields output) { record.outputs.push_back(outputIn(std::move(output))); });
  fields.finish();
  return record;
}

}  // namespace quorvane
