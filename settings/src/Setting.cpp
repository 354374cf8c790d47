#include "settings/Setting.h"

#include <algorithm>
#include <charconv>
#include <iterator>

#include "engine/Limits.h"
#include "settings/Changes.h"

namespace quorvane {
namespace {

int wholeWithin(const std::string& text, int lowest, int highest) {
  int value = 0;
  const char* last = text.data() + text.size();
  const auto [end, error] = std::from_chars(text.data(), last, value);
  if (error == std::errc{} && end == last && value >= lowest && value <= highest) return value;
  throw SettingError('"' + text + "\" is not a whole number from " + std::to_string(lowest) + " to " +
                     std::to_string(highest));
}

void parameterFrom(LatticeModel& model, int rule, const std::string& text) {
  setParameter(model, rule, realIn(text));
}

void disabledFrom(LatticeModel& model, int rule, const std::string& text) {
  setDisabled(model, rule, wholeWithin(text, 0, 1) == 1);
}

void facilitationFrom(LatticeModel& model, int rule, const std::string& text) {
  setFacilitation(model, rule, wholeWithin(text, 0, kNumDirections));
}

void fieldFrom(LatticeModel& model, int type, const std::string& text) {
  setField(model, type, realIn(text));
}

void immobileFrom(LatticeModel& model, int type, const std::string& text) {
  model.setPixelImmobile(type, wholeWithin(text, 0, 1));
}

struct Field {
  decltype(Setting::of) of;
  const char* name;
  void (*set)(LatticeModel& model, int index, const std::string& text);
};

constexpr Field kFields[] = {
    {Setting::kRule, "parameter", parameterFrom},       {Setting::kRule, "disabled", disabledFrom},
    {Setting::kRule, "facilitation", facilitationFrom}, {Setting::kType, "field", fieldFrom},
    {Setting::kType, "immobile", immobileFrom},
};

const Field* findField(const Setting& setting) {
  const auto* found = std::find_if(std::begin(kFields), std::end(kFields), [&](const Field& field) {
    return field.of == setting.of && field.name == setting.field;
  });
  return found == std::end(kFields) ? nullptr : found;
}

std::string fieldsOf(decltype(Setting::of) of) {
  std::string names;
  for (const Field& field : kFields)
    if (field.of == of) names += (names.empty() ? "" : ", ") + std::string(field.name);
  return names;
}

std::string_view trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace

Setting settingIn(std::string_view text) {
  const std::string_view all = trimmed(text);
  const auto firstSpace = all.find(' '), lastSpace = all.rfind(' ');
  const std::string_view first = all.substr(0, firstSpace);
  if (first != "rule" && first != "type")
    throw SettingError(R"(needs "rule NAME FIELD=VALUE" or "type NAME FIELD=VALUE")");
  const std::string_view last = lastSpace == std::string_view::npos ? "" : all.substr(lastSpace + 1);
  const auto equals = last.find('=');
  const std::string_view name =
      lastSpace > firstSpace ? trimmed(all.substr(firstSpace, lastSpace - firstSpace)) : std::string_view();
  Setting setting{.of = first == "rule" ? Setting::kRule : Setting::kType,
                  .name = std::string(name),
                  .field = std::string(last.substr(0, equals)),
                  .value = equals == std::string_view::npos ? "" : std::string(last.substr(equals + 1))};
  if (equals == std::string_view::npos || setting.value.empty())
    throw SettingError("needs FIELD=VALUE at its end");
  if (name.empty()) throw SettingError("needs the name of a " + std::string(first));
  if (!findField(setting))
    throw SettingError('"' + setting.field + "\" is nothing that can be set of a " + std::string(first) +
                       "; there are " + fieldsOf(setting.of));
  return setting;
}

void apply(const Setting& setting, LatticeModel& model) {
  const int index =
      setting.of == Setting::kRule ? ruleNamed(model, setting.name) : typeNamed(model, setting.name);
  try {
    findField(setting)->set(model, index, setting.value);
  } catch (const SettingError& error) {
    throw SettingError(setting.field + ": " + error.what());
  }
}

}  // namespace quorvane
