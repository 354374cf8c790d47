#include "JsonFields.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>
#include <vector>

#include "record/Record.h"

namespace quorvane {
namespace {

using nlohmann::json;

/// "line 3, column 7" of the byte at a position.
std::string placeOf(std::string_view text, std::size_t position) {
  const std::string_view before = text.substr(0, std::min(position, text.size()));
  const auto line = 1 + std::count(before.begin(), before.end(), '\n');
  const auto lineStart = before.rfind('\n');
  const std::size_t column =
      lineStart == std::string_view::npos ? before.size() + 1 : before.size() - lineStart;
  return "line " + std::to_string(line) + ", column " + std::to_string(column);
}

/// Refuses what a parser would accept silently or what would take long to undo.
class ParsingCheck {
 public:
  bool operator()(int depth, json::parse_event_t event, json& value) {
    constexpr int deepest = 8;
    if (depth > deepest) throw RecordError("is nested deeper than a record");
    if (event == json::parse_event_t::object_start) keys_.emplace_back();
    if (event == json::parse_event_t::object_end) keys_.pop_back();
    if (event == json::parse_event_t::key && !keys_.back().insert(value.get<std::string>()).second)
      throw RecordError("has the field " + value.get<std::string>() + " twice");
    return true;
  }

 private:
  std::vector<std::set<std::string>> keys_;
};

}  // namespace

json parsedJson(std::string_view text) {
  ParsingCheck check;
  try {
    return json::parse(
        text, [&](int depth, json::parse_event_t event, json& value) { return check(depth, event, value); });
  } catch (const json::parse_error& error) {
    const std::size_t position = error.byte == 0 ? 0 : error.byte - 1;
    throw RecordError(placeOf(text, position) +
                      (position >= text.size() ? ": ends too early for JSON" : ": is no JSON"));
  } catch (const json::exception&) {
    throw RecordError("has a number that is too large");
  }
}

JsonFields::JsonFields(const json& object, std::string where) : object_(object), where_(std::move(where)) {
  if (!object.is_object())
    throw RecordError(where_.empty() ? "is no JSON object" : "field " + where_ + ": is no object");
}

void JsonFields::refuse(const char* key, const std::string& why) const {
  throw RecordError("field " + nameOfField(key) + ": " + why);
}

const json& JsonFields::take(const char* key) {
  const auto found = object_.find(key);
  if (found == object_.end()) refuse(key, "is missing");
  read_.emplace_back(key);
  return *found;
}

std::string JsonFields::textIn(const json& value, const char* key) const {
  if (!value.is_string()) refuse(key, "is no text");
  auto text = value.get<std::string>();
  // Names of files and options end at such a byte.
  if (text.find('\0') != std::string::npos) refuse(key, "contains a zero byte");
  return text;
}

std::string JsonFields::text(const char* key) { return textIn(take(key), key); }

std::optional<std::string> JsonFields::textOrNull(const char* key) {
  const json& value = take(key);
  if (value.is_null()) return std::nullopt;
  return textIn(value, key);
}

std::int64_t JsonFields::whole(const char* key, std::int64_t lowest, std::int64_t highest) {
  const json& value = take(key);
  const bool fits = value.is_number_integer() &&
                    (!value.is_number_unsigned() ||
                     value.get<std::uint64_t>() <= std::uint64_t{std::numeric_limits<std::int64_t>::max()});
  if (fits && value.get<std::int64_t>() >= lowest && value.get<std::int64_t>() <= highest)
    return value.get<std::int64_t>();
  refuse(key, "is no whole number from " + std::to_string(lowest) +
                  (highest == std::numeric_limits<std::int64_t>::max() ? " upwards"
                                                                       : " to " + std::to_string(highest)));
}

double JsonFields::real(const char* key) {
  const json& value = take(key);
  if (!value.is_number() || !(value.get<double>() >= 0.0) || !std::isfinite(value.get<double>()))
    refuse(key, "is no number from 0 upwards");
  return value.get<double>();
}

bool JsonFields::flag(const char* key) {
  const json& value = take(key);
  if (!value.is_boolean()) refuse(key, "is neither true nor false");
  return value.get<bool>();
}

JsonFields JsonFields::object(const char* key) { return {take(key), nameOfField(key)}; }

const json& JsonFields::takeList(const char* key) {
  const json& list = take(key);
  if (!list.is_array()) refuse(key, "is no list");
  return list;
}

std::vector<std::string> JsonFields::texts(const char* key) {
  std::vector<std::string> texts;
  for (const json& item : takeList(key)) texts.push_back(textIn(item, key));
  return texts;
}

void JsonFields::each(const char* key, const std::function<void(JsonFields)>& use) {
  std::size_t index = 0;
  for (const json& item : takeList(key))
    use(JsonFields(item, nameOfField(key) + '[' + std::to_string(index++) + ']'));
}

void JsonFields::finish() const {
  for (const auto& [key, value] : object_.items())
    if (std::find(read_.begin(), read_.end(), key) == read_.end())
      refuse(key.c_str(), "is not known to this version");
}

}  // namespace quorvane
