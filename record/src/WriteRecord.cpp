#include <nlohmann/json.hpp>

#include "record/Record.h"

namespace quorvane {
namespace {

/// Keys stay in the order of the page.
using Json = nlohmann::ordered_json;

template <class Text>
Json orNull(const std::optional<Text>& text) {
  return text ? Json(*text) : Json();
}

void addFingerprint(Json& json, const Fingerprint& content) {
  json["sha256"] = content.sha256;
  json["bytes"] = content.bytes;
}

Json jsonOf(const Program& program) {
  return {{"name", program.name},
          {"version", program.version},
          {"commit", program.commit},
          {"compiler", program.compiler},
          {"cLibrary", program.cLibrary}};
}

Json jsonOf(const RecordedDocument& document) {
  Json json = {{"path", document.path}};
  addFingerprint(json, document.content);
  return json;
}

Json jsonOf(const std::vector<RecordedFrame>& frames) {
  Json list = Json::array();
  for (const RecordedFrame& frame : frames) {
    Json json = {{"name", frame.name}};
    addFingerprint(json, frame.content);
    list.push_back(json);
  }
  return list;
}

Json jsonOf(const RecordedOutput& output) {
  Json json = {{"option", output.option}, {"path", output.path}};
  if (const auto* frames = std::get_if<std::vector<RecordedFrame>>(&output.content))
    json["frames"] = jsonOf(*frames);
  else
    addFingerprint(json, std::get<Fingerprint>(output.content));
  return json;
}

void addStart(Json& json, const RunStart& start) {
  json["program"] = jsonOf(start.program);
  json["machine"] = {{"processor", start.machine.processor}, {"cores", start.machine.cores}};
  json["started"] = start.started;
  json["seconds"] = start.seconds;
  json["drawsMade"] = start.drawsMade;
  json["commandLine"] = start.commandLine;
  json["workingFolder"] = start.workingFolder;
  json["document"] = jsonOf(start.document);
}

std::string written(const Json& json) {
  return json.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

}  // namespace

std::string toJson(const RunStart& start) {
  Json json = Json::object();
  addStart(json, start);
  return written(json);
}

std::string toJson(const Record& record) {
  Json json = {{"format", "quorvane-record"}, {"formatVersion", kRecordFormat}};
  addStart(json, record.start);
  json["seed"] = record.seed;
  json["settings"] = record.settings;
  json["remake"] = orNull(record.remake);
  json["fill"] = orNull(record.fill);
  json["observables"] = orNull(record.observables);
  json["every"] = record.every;
  json["scale"] = record.scale;
  json["trace"] = record.trace;
  json["sweeps"] = {{"asked", record.sweepsAsked}, {"done", record.sweepsDone}};
  json["outputs"] = Json::array();
  for (const RecordedOutput& output : record.outputs) json["outputs"].push_back(jsonOf(output));
  return written(json);
}

bool canBeRecorded(const std::string& text) {
  try {
    static_cast<void>(Json(text).dump());
    return true;
  } catch (const Json::type_error&) {
    return false;
  }
}

}  // namespace quorvane
