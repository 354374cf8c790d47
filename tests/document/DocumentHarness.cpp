#include "DocumentHarness.h"

#include <algorithm>
#include <optional>

#include "DocumentSupport.h"
#include "document/ParsedDocument.h"
#include "engine/f_ran0.h"

namespace quorvane {
namespace {

/// A freshly started model, reused: allocating and filling six megabytes takes longer than reading most
/// documents.
class FreshModel {
 public:
  LatticeModel& get() {
    if (model_) return *model_;
    model_.emplace();
    model_->awakeFromNib();
    return *model_;
  }
  /// To be called after the model has changed.
  void used() { model_.reset(); }

 private:
  std::optional<LatticeModel> model_;
};

/// Infinities are saved as a word that reads as 0.
bool holdsInfinity(const std::string& text) {
  return text.find("\ninf\n") != std::string::npos || text.find("\n-inf\n") != std::string::npos;
}

bool withinLimits(const LatticeModel& model) {
  const int numTypes = model.getNumPixelTypes();
  for (int i = 0; i < model.getIMax(); ++i)
    for (int j = 0; j < model.getJMax(); ++j)
      if (model.getSiteValue(i, j) < 0 || model.getSiteValue(i, j) >= numTypes) return false;
  return true;
}

std::string checkRuns(LatticeModel& model) {
  constexpr int sweeps = 3;
  model.runSweeps(sweeps);
  return withinLimits(model) ? "" : "a site left the pixel types";
}

std::string checkSaves(const LatticeModel& model) {
  static FreshModel fresh;
  fresh.used();
  const std::string saved = writeDocument(model);
  LatticeModel& again = fresh.get();
  const OpenResult result = readDocument(again, saved);
  if (result.status != OpenStatus::kOpened) return "the saved document does not open: " + result.message;
  if (!holdsInfinity(saved) && writeDocument(again) != saved) return "the saved document reads as another";
  return {};
}

std::string checkOpened(LatticeModel& model) {
  if (std::string wrong = checkSaves(model); !wrong.empty()) return wrong;
  if (std::string wrong = checkRuns(model); !wrong.empty()) return wrong;
  return checkSaves(model);
}

std::string checkApplied(LatticeModel& model, OpenStatus status) {
  if (status == OpenStatus::kOpened) return checkOpened(model);
  return status == OpenStatus::kCutShort ? checkRuns(model) : "announced, and then nothing applied";
}

bool isPrintable(const std::string& line) {
  return std::all_of(line.begin(), line.end(), [](char c) { return c >= ' ' && c <= '~'; });
}

std::string checkResult(const OpenResult& result, const OpenResult& inspected) {
  if ((result.status == OpenStatus::kOpened) != result.message.empty()) return "status and message disagree";
  if (!isPrintable(result.message) || !isPrintable(result.reason)) return "no printable line";
  const bool namesLine = result.message.starts_with("line ");
  const bool shouldNameLine = result.status == OpenStatus::kRefused || result.status == OpenStatus::kCutShort;
  if (namesLine != shouldNameLine) return "a line is named, or none: " + result.message;
  const bool same = result.status == inspected.status && result.message == inspected.message &&
                    result.reason == inspected.reason;
  return same ? "" : "the panel would say something else: " + inspected.message;
}

/// True if nothing has been drawn since then.
bool nothingDrawnSince(RandomSource then) {
  RandomSource now = processRandomSource;
  return then.next() == now.next();
}

std::string checkUntouched(OpenStatus status, const std::string& before, const std::string& after,
                           const RandomSource& source) {
  if (status == OpenStatus::kOpened) return "opened without a header";
  if (after != before) return "the model changed without a header";
  return nothingDrawnSince(source) ? "" : "numbers were drawn without a header";
}

}  // namespace

std::string checkDocument(std::string_view text) {
  static FreshModel fresh;
  LatticeModel& model = fresh.get();
  restartRandomNumbers();
  const std::string before = stateOf(model);
  const RandomSource source = processRandomSource;
  const OpenResult inspected = inspectDocument(model, text).result;
  bool announced = false;
  const OpenResult result =
      readDocument(model, text, [&announced](const DocumentHeader&) { announced = true; });
  std::string wrong = checkResult(result, inspected);
  if (wrong.empty() && !announced) wrong = checkUntouched(result.status, before, stateOf(model), source);
  if (wrong.empty() && announced) wrong = checkApplied(model, result.status);
  if (announced || !wrong.empty()) fresh.used();
  return wrong;
}

}  // namespace quorvane
