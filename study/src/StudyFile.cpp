#include "study/StudyFile.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <optional>
#include <set>

#include "TomlSection.h"
#include "batch/Messages.h"

namespace quorvane {
namespace {

constexpr std::int64_t kMostValues = 1'000'000;
/// Leaves room for sums of sweeps.
constexpr std::int64_t kMostSweeps = 1'000'000'000'000'000;

/// Steps between two numbers are rounded to this many digits, so that a tenth of the way from 0.7 to 0.8 is
/// 0.71 and not its neighbour.
constexpr int kDigitsOfASteps = 15;

double rounded(double value) {
  char text[40];
  std::snprintf(text, sizeof text, "%.*e", kDigitsOfASteps - 1, value);
  return realIn(text);
}

/// The elements of a list of texts, joined by commas.
std::string observablesIn(TomlSection& section) {
  std::string joined;
  for (const toml::node& node : section.list("observables"))
    joined.append(joined.empty() ? "" : ",").append(section.text(node));
  return joined;
}

int lineOf(const toml::node& node) { return static_cast<int>(node.source().begin.line); }

LatticeSides sidesOf(const TomlSection& lattice, const toml::node& node) {
  const auto side = [&](const toml::node& each) {
    return static_cast<int>(lattice.whole(each, 1, kMaxSide));
  };
  const toml::array* pair = node.as_array();
  if (!pair) return {side(node), side(node)};
  if (pair->size() != 2) lattice.refuse(node, "sides: a side, or two of them as [64, 48], are needed");
  return {side((*pair)[0]), side((*pair)[1])};
}

/// Reads shares in the order of the file, since that is the order of their comparison with a draw.
std::vector<Share> sharesOf(TomlSection& lattice) {
  TomlSection table = lattice.section("fill");
  std::vector<Share> shares;
  double sum = 0.0;
  for (const std::string& name : table.keys()) {
    const toml::node& node = table.need(name.c_str());
    const double share = table.real(node);
    if (!(share >= 0.0 && share <= 1.0)) table.refuse(node, "fill: a share is from 0 to 1");
    if (name.find_first_of(",=") != std::string::npos)
      table.refuse(node, "fill: " + inQuotes(name) + R"( has a comma or "="; use its index, as "#0")");
    shares.push_back({name, share});
    sum += share;
  }
  constexpr double tolerance = 1e-9;
  if (!(std::abs(sum - 1.0) <= tolerance))
    table.refuse("fill: the shares add up to " + shortest(sum) + ", not 1");
  return shares;
}

void readLattice(TomlSection lattice, Study& study) {
  if (lattice.has("sides")) {
    for (const toml::node& node : lattice.list("sides")) {
      const LatticeSides sides = sidesOf(lattice, node);
      if (std::find(study.sides.begin(), study.sides.end(), sides) != study.sides.end())
        lattice.refuse(node, "sides: " + std::to_string(sides.imax) + " x " + std::to_string(sides.jmax) +
                                 " is there twice");
      study.sides.push_back(sides);
    }
  }
  if (lattice.has("fill")) {
    study.fill = sharesOf(lattice);
    study.source.fill = lineOf(lattice.need("fill"));
  }
  lattice.requireAllRead();
}

/// The values of { from = 0.70, to = 0.82, steps = 13 }.
std::vector<std::string> steppedValues(TomlSection range) {
  const double from = range.real(range.need("from"));
  const double to = range.real(range.need("to"));
  const std::int64_t steps = range.whole("steps", 2, kMostValues);
  range.requireAllRead();
  std::vector<std::string> values;
  for (std::int64_t k = 0; k < steps; ++k) {
    const double place = static_cast<double>(k) / static_cast<double>(steps - 1);
    values.push_back(shortest(k == 0 ? from : k == steps - 1 ? to : rounded(from + place * (to - from))));
  }
  return values;
}

std::vector<std::string> valuesOf(TomlSection& axis, const char* field) {
  const toml::node& node = axis.need(field);
  if (node.is_table()) return steppedValues(axis.section(field));
  std::vector<std::string> values;
  for (const toml::node& each : axis.list(field)) values.push_back(shortest(axis.real(each)));
  return values;
}

struct AxisField {
  const char *of, *field;
};
constexpr AxisField kAxisFields[] = {{"rule", "parameter"},
                                     {"rule", "disabled"},
                                     {"rule", "facilitation"},
                                     {"type", "field"},
                                     {"type", "immobile"}};

Axis axisOf(TomlSection section) {
  if (section.has("rule") == section.has("type")) section.refuse("[[vary]]: a rule or a type is needed");
  const char* of = section.has("rule") ? "rule" : "type";
  Axis axis{.of = section.has("rule") ? Setting::kRule : Setting::kType,
            .name = section.text(of),
            .field = {},
            .values = {},
            .line = lineOf(section.need(of))};
  std::string fields;
  for (const AxisField& each : kAxisFields) {
    if (std::string_view(each.of) != of) continue;
    if (!fields.empty()) fields += ", ";
    fields += each.field;
    if (!section.has(each.field)) continue;
    if (!axis.field.empty()) section.refuse("[[vary]]: only one of " + axis.field + " and " + each.field);
    axis.field = each.field;
    axis.values = valuesOf(section, each.field);
  }
  section.requireAllRead();
  if (axis.field.empty())
    section.refuse(std::string("[[vary]]: of a ") + of + " one of these is needed: " + fields);
  // The same value twice would make two points that are one.
  std::set<std::string> different;
  for (const std::string& value : axis.values)
    if (!different.insert(value).second)
      section.refuse(section.need(axis.field.c_str()),
                     "[[vary]]: " + inQuotes(axis.name) + " has the value " + value + " twice");
  return axis;
}

void requireFits(const Study& study, TomlSection& top) {
  if (study.discard > study.sweeps) top.refuse(top.need("discard"), "discard: more than the sweeps");
  if (study.sweeps % study.every != 0) top.refuse(top.need("sweeps"), "sweeps: not a multiple of every");
  double points = static_cast<double>(std::max<std::size_t>(study.sides.size(), 1));
  for (const Axis& axis : study.axes) points *= static_cast<double>(axis.values.size());
  const double lastSeed =
      static_cast<double>(study.seed) + points * static_cast<double>(study.replicas) - 1.0;
  if (lastSeed <= static_cast<double>(kLargestSeed)) return;
  const char* key = top.has("seed") ? "seed" : top.has("replicas") ? "replicas" : "sweeps";
  top.refuse(top.need(key), "seed: the last of " + shortest(points) + " points times " +
                                std::to_string(study.replicas) + " replicas would have a seed beyond " +
                                std::to_string(kLargestSeed));
}

Study studyOf(TomlSection top, const std::string& file) {
  Study study;
  study.source.file = file;
  study.document = top.text("document");
  study.source.document = lineOf(top.need("document"));
  study.sweeps = top.whole("sweeps", 1, kMostSweeps);
  if (top.has("discard")) study.discard = top.whole("discard", 0, kMostSweeps);
  if (top.has("every")) study.every = top.whole("every", 1, kMostSweeps);
  if (top.has("replicas")) study.replicas = top.whole("replicas", 1, kLargestSeed);
  if (top.has("seed")) study.seed = top.whole("seed", 1, kLargestSeed);
  study.observables = observablesIn(top);
  study.source.observables = lineOf(top.need("observables"));
  if (top.has("lattice")) readLattice(top.section("lattice"), study);
  if (top.has("vary"))
    for (TomlSection& axis : top.sections("vary")) study.axes.push_back(axisOf(axis));
  if (top.has("series")) {
    TomlSection series = top.section("series");
    study.series = observablesIn(series);
    study.source.series = lineOf(series.need("observables"));
    series.requireAllRead();
  }
  top.requireAllRead();
  requireFits(study, top);
  return study;
}

}  // namespace

Study studyIn(std::string_view text, const std::filesystem::path& file) {
  const toml::parse_result parsed = toml::parse(text);
  if (!parsed)
    throw StudyError(nameOf(file) + ": line " + std::to_string(parsed.error().source().begin.line) + ": " +
                     onOneLine(parsed.error().description()));
  return studyOf({parsed.table(), "", nameOf(file)}, nameOf(file));
}

std::string textOf(const std::filesystem::path& file) {
  std::error_code error;
  if (!std::filesystem::exists(file, error)) throw StudyError(nameOf(file) + ": No such file or directory");
  if (!std::filesystem::is_regular_file(file, error)) throw StudyError(nameOf(file) + ": is no regular file");
  std::ifstream in(file, std::ios::binary);
  std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  if (!in.is_open() || in.bad()) throw StudyError(nameOf(file) + ": cannot be read");
  return text;
}

Study readStudy(const std::filesystem::path& file) { return studyIn(textOf(file), file); }

}  // namespace quorvane
