#include "settings/Changes.h"

#include <algorithm>
#include <charconv>

#include "document/DocumentFile.h"
#include "engine/RuleKinds.h"

namespace quorvane {
namespace {

constexpr double kLargestEnergy = 10.0;

std::string plain(double value) {
  char text[32];
  return {text, std::to_chars(text, text + sizeof text, value).ptr};
}

void requireWithin(double value, double lowest, double highest) {
  // False for nan, too.
  if (value >= lowest && value <= highest) return;
  throw SettingError(plain(value) + " is not from " + plain(lowest) + " to " + plain(highest));
}

}  // namespace

void setParameter(LatticeModel& model, int rule, double value) {
  const int kind = model.getRuleType(rule);
  requireParameter(kind, value);
  model.setRuleParam(rule, value);
  if (setsPairEnergy(kind)) model.setInteractionParams(rule, value);
}

void setDisabled(LatticeModel& model, int rule, bool disabled) {
  const int flag = disabled ? 1 : 0;
  if (flag == model.getRuleDisabled(rule)) return;  // The pair energies are where they belong.
  model.setRuleDisabled(rule, flag);
  if (!setsPairEnergy(model.getRuleType(rule))) return;
  if (disabled)
    model.disableInteraction(rule);
  else
    model.enableInteraction(rule);
}

void setFacilitation(LatticeModel& model, int rule, int neighbours) {
  requireFacilitation(model.getRuleType(rule), neighbours);
  model.setRuleFacNum(rule, neighbours);
}

void setFacilitatingType(LatticeModel& model, int rule, int type) {
  requireTypeOrNone(model, type);
  model.setRuleFacPixel(rule, type);
}

void setField(LatticeModel& model, int type, double energy) {
  requireWithin(energy, -kLargestEnergy, kLargestEnergy);
  model.setPixelField(type, energy);
}

void setPersistence(LatticeModel& model, int type, double fraction) {
  requireWithin(fraction, 0.0, 1.0);
  model.setPixelPersistence(type, fraction);
}

void setOpacity(LatticeModel& model, int type, double opacity) {
  requireWithin(opacity, 0.0, 1.0);
  model.setPixelAlpha(type, opacity);
}

void setColor(LatticeModel& model, int type, const std::array<double, 3>& color) {
  for (const double part : color) requireWithin(part, 0.0, 1.0);
  model.setPixelColor(type, color[0], color[1], color[2]);
}

void setMasquerade(LatticeModel& model, int type, int asType) {
  requireTypeOrNone(model, asType);
  if (asType == type) throw SettingError("a type cannot masquerade as itself");
  model.setPixelMasqueradeAs(type, asType);
}

void requireParameter(int kind, double value) {
  const RuleKind* known = ruleKind(kind);
  if (!known) throw SettingError("the rule is of no known kind");
  requireWithin(value, known->minParameter, known->maxParameter);
}

void requireFacilitation(int kind, int neighbours) {
  requireWithin(neighbours, 0, kNumDirections);
  const RuleKind* known = ruleKind(kind);
  if (!known || !known->flips()) throw SettingError("only a flip can be facilitated");
}

void requireName(const std::string& name) {
  const auto isPrintable = [](char c) { return c >= ' ' && c <= '~'; };
  if (!std::all_of(name.begin(), name.end(), isPrintable))
    throw SettingError("a name has printable ASCII characters only");
  if (name.size() > kMaxNameLength)
    throw SettingError("a name has at most " + std::to_string(kMaxNameLength) + " characters, not " +
                       std::to_string(name.size()));
}

void requireTypeOrNone(const LatticeModel& model, int type) {
  if (type >= -1 && type < model.getNumPixelTypes()) return;
  throw SettingError(std::to_string(type) + " is no pixel type; there are 0 to " +
                     std::to_string(model.getNumPixelTypes() - 1));
}

}  // namespace quorvane
