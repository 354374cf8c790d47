#include "settings/Names.h"

#include <charconv>
#include <cmath>
#include <functional>
#include <optional>
#include <vector>

#include "document/RealFromChars.h"

namespace quorvane {
namespace {

std::string inMarks(std::string_view text) { return '"' + std::string(text) + '"'; }

using NameOf = std::function<std::string(int)>;

std::string listed(const std::vector<int>& indices, const NameOf& nameAt) {
  std::string text;
  for (const int index : indices)
    text += (text.empty() ? "" : ", ") + ("#" + std::to_string(index)) + ' ' + inMarks(nameAt(index));
  return text;
}

/// The number behind "#"; none for other texts.
std::optional<int> indexIn(std::string_view name) {
  if (!name.starts_with('#')) return std::nullopt;
  int index = 0;
  const char* end = name.data() + name.size();
  const auto [rest, error] = std::from_chars(name.data() + 1, end, index);
  return error == std::errc{} && rest == end && index >= 0 ? std::optional(index) : std::nullopt;
}

/// kind: "pixel type" or "rule".
int named(std::string_view name, const std::string& kind, int count, const NameOf& nameAt) {
  std::vector<int> all, fitting;
  for (int index = 0; index < count; ++index) {
    all.push_back(index);
    if (nameAt(index) == name) fitting.push_back(index);
  }
  if (const auto index = indexIn(name); index && *index < count) return *index;
  if (fitting.size() == 1) return fitting[0];
  if (fitting.size() > 1)
    throw SettingError("several " + kind + "s are called " + inMarks(name) + ": " + listed(fitting, nameAt));
  throw SettingError("no " + kind + " is called " + inMarks(name) + "; there " +
                     (all.empty() ? "is none" : "are " + listed(all, nameAt)));
}

}  // namespace

int typeNamed(const LatticeModel& model, std::string_view name) {
  return named(name, "pixel type", model.getNumPixelTypes(), [&](int t) { return model.getPixelName(t); });
}

int ruleNamed(const LatticeModel& model, std::string_view name) {
  return named(name, "rule", model.getNumRules(), [&](int r) { return model.getRuleName(r); });
}

double realIn(std::string_view text) {
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  const bool isNegative = text.starts_with('-');
  const char* first = text.data() + (isNegative ? 1 : 0);
  const char* last = text.data() + text.size();
  const char* digit = first != last && *first == '.' ? first + 1 : first;
  double value = 0.0;
  if (digit != last && isDigit(*digit)) {
    const auto [end, error] = realFromChars(first, last, value);
    if (error == std::errc{} && end == last && std::isfinite(value)) return isNegative ? -value : value;
  }
  throw SettingError(inMarks(text) + " is not a number");
}

}  // namespace quorvane
