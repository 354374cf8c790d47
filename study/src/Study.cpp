#include "study/Study.h"

#include <charconv>

namespace quorvane {
namespace {

std::string sidesText(const LatticeSides& sides) {
  return std::to_string(sides.imax) + 'x' + std::to_string(sides.jmax);
}

const char* wordOf(decltype(Setting::of) of) { return of == Setting::kRule ? "rule" : "type"; }

}  // namespace

std::string shortest(double value) {
  char text[32];
  return {text, std::to_chars(text, text + sizeof text, value).ptr};
}

std::int64_t numPoints(const Study& study) {
  std::int64_t points = study.sides.empty() ? 1 : static_cast<std::int64_t>(study.sides.size());
  for (const Axis& axis : study.axes) points *= static_cast<std::int64_t>(axis.values.size());
  return points;
}

std::int64_t numRuns(const Study& study) { return numPoints(study) * study.replicas; }

std::vector<std::size_t> placesOf(const Study& study, std::int64_t point) {
  const std::size_t first = study.sides.empty() ? 0 : 1;
  std::vector<std::size_t> places(first + study.axes.size());
  for (std::size_t k = places.size(); k-- > 0;) {
    const std::size_t length = k < first ? study.sides.size() : study.axes[k - first].values.size();
    places[k] = static_cast<std::size_t>(point) % length;
    point /= static_cast<std::int64_t>(length);
  }
  return places;
}

Start startOf(const Study& study, std::int64_t run) {
  const auto places = placesOf(study, run % numPoints(study));
  const std::size_t first = study.sides.empty() ? 0 : 1;
  Start start{.seed = static_cast<int>(study.seed + run), .settings = {}, .remake = {}, .fill = study.fill};
  if (!study.sides.empty()) start.remake = study.sides[places[0]];
  for (std::size_t k = 0; k < study.axes.size(); ++k) {
    const Axis& axis = study.axes[k];
    start.settings.push_back(
        {.of = axis.of, .name = axis.name, .field = axis.field, .value = axis.values[places[first + k]]});
  }
  return start;
}

std::vector<std::string> settingNames(const Study& study) {
  std::vector<std::string> names;
  if (!study.sides.empty()) names = {"imax", "jmax"};
  for (const Axis& axis : study.axes)
    names.push_back(std::string(wordOf(axis.of)) + ' ' + axis.name + ' ' + axis.field);
  return names;
}

std::vector<std::string> settingValues(const Study& study, std::int64_t point) {
  const auto places = placesOf(study, point);
  std::vector<std::string> values;
  std::size_t k = 0;
  if (!study.sides.empty()) {
    const LatticeSides& sides = study.sides[places[k++]];
    values = {std::to_string(sides.imax), std::to_string(sides.jmax)};
  }
  for (const Axis& axis : study.axes) values.push_back(axis.values[places[k++]]);
  return values;
}

std::int64_t numMeasurements(const Study& study) {
  const std::int64_t before = study.discard / study.every + (study.discard % study.every == 0 ? 0 : 1);
  return study.sweeps / study.every + 1 - before;
}

std::string identityOf(const Study& study) {
  std::string text = "sweeps " + std::to_string(study.sweeps) + "\ndiscard " + std::to_string(study.discard) +
                     "\nevery " + std::to_string(study.every) + "\nseed " + std::to_string(study.seed) +
                     "\nobservables " + study.observables + "\nseries " + study.series + '\n';
  for (const LatticeSides& sides : study.sides) text += "sides " + sidesText(sides) + '\n';
  for (const Share& share : study.fill) text += "fill " + share.type + '=' + shortest(share.share) + '\n';
  for (const Axis& axis : study.axes) {
    text += std::string("vary ") + wordOf(axis.of) + ' ' + axis.name + ' ' + axis.field + ':';
    for (const std::string& value : axis.values) text += ' ' + value;
    text += '\n';
  }
  return text;
}

}  // namespace quorvane
