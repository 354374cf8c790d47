#include "StartCheck.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "DocumentSupport.h"
#include "batch/Messages.h"
#include "batch/Start.h"
#include "measure/MeasureError.h"
#include "measure/Measurements.h"

namespace quorvane {
namespace {

struct StartInput {
  std::string observables;
  StartWords words;
};

StartInput inputIn(std::string_view text) {
  std::vector<std::string> words;
  while (!text.empty()) {
    words.emplace_back(text.substr(0, text.find('\0')));
    text.remove_prefix(std::min(words.back().size() + 1, text.size()));
  }
  constexpr std::size_t firstSetting = 3;
  words.resize(std::max(words.size(), firstSetting));
  const auto given = [&](std::size_t k) { return words[k].empty() ? std::nullopt : std::optional(words[k]); };
  StartInput input{.observables = words[0],
                   .words = {.seed = {}, .settings = {}, .remake = given(2), .fill = given(1)}};
  input.words.settings.assign(words.begin() + firstSetting, words.end());
  return input;
}

/// With names that look like an index, a setting or a list, and two that are the same.
std::unique_ptr<LatticeModel> awkwardModel() {
  auto model = freshModel();
  const char* const names[] = {"Bare ground", "Tree", "Tree", "#1", "4", "a=b", "rain, snow"};
  model->initializeLatticeModel(static_cast<int>(std::size(names)), 9, 7);
  for (int t = 0; t < model->getNumPixelTypes(); ++t) model->setPixelName(t, names[t]);
  model->makeNewRule("Growth", kIrreversibleFlip, 0, 1);
  model->makeNewRule("Turn = back", kReversibleFlip, 1, kAnyPixelType);
  model->makeNewRule("Walk", kSwap, 1, kAnyPixelType);
  model->makeNewRule("rule Walk parameter=1", kPixelPixelInteraction, 1, 2);
  model->makeNewRule("#2", kPixelPixelInteraction, kAnyPixelType, kAnyPixelType);
  return model;
}

/// The line of what a call throws; none if it throws nothing.
template <typename Error>
std::optional<std::string> refusalOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const Error& error) {
    return error.what();
  }
  return std::nullopt;
}

std::string checkSettingError(const std::string& line) {
  const std::string shown = onOneLine(line);
  const bool namesOption =
      shown.starts_with("--set: ") || shown.starts_with("--fill: ") || shown.starts_with("--remake: ");
  return namesOption && shown.size() > sizeof "--remake: " ? "" : "not a refusal: " + shown;
}

std::string checkSites(const LatticeModel& model, const std::function<bool(int)>& mayBe) {
  for (int i = 0; i < model.getIMax(); ++i)
    for (int j = 0; j < model.getJMax(); ++j)
      if (!mayBe(model.getSiteValue(i, j)))
        return "a site holds type " + std::to_string(model.getSiteValue(i, j));
  return {};
}

std::string checkSavesAsItIs(const LatticeModel& model) {
  const std::string saved = writeDocument(model);
  const auto again = freshModel();
  const OpenResult result = readDocument(*again, saved);
  if (result.status != OpenStatus::kOpened) return "the changed model does not open: " + result.message;
  return writeDocument(*again) == saved ? "" : "the changed model reads as another";
}

std::string checkRanges(const LatticeModel& model) {
  for (int r = 0; r < model.getNumRules(); ++r) {
    const double lowest = model.getRuleType(r) == kPixelPixelInteraction ? -10.0 : 0.0;
    const double highest = model.getRuleType(r) == kPixelPixelInteraction ? 10.0 : 1.0;
    if (!(model.getRuleParam(r) >= lowest && model.getRuleParam(r) <= highest))
      return "a parameter out of range";
    if (model.getRuleFacNum(r) < 0 || model.getRuleFacNum(r) > kNumDirections) return "too many facilitate";
  }
  for (int t = 0; t < model.getNumPixelTypes(); ++t)
    if (!(model.getPixelField(t) >= -10.0 && model.getPixelField(t) <= 10.0)) return "a field out of range";
  return {};
}

std::string checkFilled(const LatticeModel& model, const std::vector<Share>& shares) {
  if (shares.empty()) return {};
  return checkSites(model, [&](int type) {
    return std::any_of(shares.begin(), shares.end(), [&](const Share& share) {
      return share.share > 0.0 && typeNamed(model, share.type) == type;
    });
  });
}

/// One by one, since a refused setting must leave what the ones before it have changed.
std::string checkSettings(LatticeModel& model, const std::vector<Setting>& settings) {
  for (const Setting& setting : settings) {
    const std::string before = stateOf(model);
    const Start one{.seed = {}, .settings = {setting}, .remake = {}, .fill = {}};
    const auto refusal = refusalOf<SettingError>([&] { changeBeforeRun(model, one); });
    if (!refusal) continue;
    if (std::string wrong = checkSettingError(*refusal); !wrong.empty()) return wrong;
    if (stateOf(model) != before) return "a refused setting changed something: " + onOneLine(*refusal);
  }
  return checkRanges(model);
}

std::string checkRows(LatticeModel& model, const std::string& list) {
  std::optional<Measurements> measurements;
  const Snapshot start = snapshotOf(model);
  if (const auto refusal = refusalOf<MeasureError>([&] { measurements.emplace(list, start); })) {
    const bool oneLine = refusal->starts_with("entry ") && refusal->find('\n') == std::string::npos;
    return oneLine ? "" : "not a refusal: " + *refusal;
  }
  if (measurements->measure(start).values().size() != measurements->columns().size())
    return "columns without values";
  Measurements goingOn(list, start);
  goingOn.restore(measurements->state());
  model.runSweeps(2);
  const Snapshot later = snapshotOf(model);
  return measurements->csvRow(2, later) == goingOn.csvRow(2, later)
             ? ""
             : "a stored state goes on with other rows";
}

std::string checkStarted(const Start& start, const std::string& observables) {
  const auto model = awkwardModel();
  std::string wrong = checkSettings(*model, start.settings);
  if (!wrong.empty()) return wrong;
  const Start rest{.seed = {}, .settings = {}, .remake = start.remake, .fill = start.fill};
  const auto refusal = refusalOf<SettingError>([&] { changeBeforeRun(*model, rest); });
  wrong = refusal ? checkSettingError(*refusal) : checkFilled(*model, rest.fill);
  if (wrong.empty()) wrong = checkSavesAsItIs(*model);
  if (wrong.empty()) wrong = checkRows(*model, observables);
  if (!wrong.empty()) return wrong;
  return checkSites(*model, [&](int type) { return type >= 0 && type < model->getNumPixelTypes(); });
}

}  // namespace

std::string checkStart(std::string_view text) {
  restartRandomNumbers();
  const StartInput input = inputIn(text);
  Start start;
  if (const auto refusal = refusalOf<SettingError>([&] { start = startFrom(input.words); }))
    return checkSettingError(*refusal);
  // Larger lattices reach no other code, and take the time of many inputs.
  constexpr int largestSide = 40;
  if (start.remake && std::max(start.remake->imax, start.remake->jmax) > largestSide) start.remake.reset();
  return checkStarted(start, input.observables);
}

}  // namespace quorvane
