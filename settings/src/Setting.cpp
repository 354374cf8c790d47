#include "settings/Setting.h"

#include <algorithm>
#include <charconv>
#include <iterator>

#include "engine/RuleKinds.h"

namespace quorvane {
namespace {

constexpr double kLargestEnergy = 10.0;

std::string plain(double value) {
  char text[32];
  return {text, std::to_chars(text, text + sizeof text, value).ptr};
}

double within(const std::string& text, double lowest, double highest) {
  const double value = realIn(text);
  if (value >= lowest && value <= highest) return value;
  throw SettingError(text + " is not from " + plain(lowest) + " to " + plain(highest));
}

int wholeWithin(const std::string& text, int lowest, int highest) {
  int value = 0;
  const char* last = text.data() + text.size();
  const auto [end, error] = std::from_chars(text.data(), last, value);
  if (error == std::errc{} && end == last && value >= lowest && value <= highest) return value;
  throw SettingError('"' + text + "\" is not a whole number from " + std::to_string(lowest) + " to " +
                     std::to_string(highest));
}

void setParameter(LatticeModel& model, int rule, const std::string& text) {
  const RuleKind* kind = ruleKind(model.getRuleType(rule));
  if (!kind) throw SettingError("the rule is of no known kind");
  const double value = within(text, kind->minParameter, kind->maxParameter);
  model.setRuleParam(rule, value);
  if (kind->setsPairEnergy()) model.setInteractionParams(rule, value);
}

void setDisabled(LatticeModel& model, int rule, const std::string& text) {
  const int flag = wholeWithin(text, 0, 1);
  if (flag == model.getRuleDisabled(rule)) return;  // The pair energies are where they belong.
  model.setRuleDisabled(rule, flag);
  if (!setsPairEnergy(model.getRuleType(rule))) return;
  if (flag == 1)
    model.disableInteraction(rule);
  else
    model.enableInteraction(rule);
}

void setFacilitation(LatticeModel& model, int rule, const std::string& text) {
  const int number = wholeWithin(text, 0, kNumDirections);
  const RuleKind* kind = ruleKind(model.getRuleType(rule));
  if (!kind || !kind->flips()) throw SettingError("only a flip can be facilitated");
  model.setRuleFacNum(rule, number);
}

void setField(LatticeModel& model, int type, const std::string& text) {
  model.setPixelField(type, within(text, -kLargestEnergy, kLargestEnergy));
}

void setImmobile(LatticeModel& model, int type, const std::string& text) {
  model.setPixelImmobile(type, wholeWithin(text, 0, 1));
}

struct Field {
  decltype(Setting::of) of;
  const char* name;
  void (*set)(LatticeModel& model, int index, const std::string& text);
};

constexpr Field kFields[] = {
    {Setting::kRule, "parameter", setParameter},       {Setting::kRule, "disabled", setDisabled},
    {Setting::kRule, "facilitation", setFacilitation}, {Setting::kType, "field", setField},
    {Setting::kType, "immobile", setImmobile},
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
