#include "DocumentHarness.h"

#include "DocumentSupport.h"

namespace quorvane {
namespace {

/// Reals beyond the range of a double are saved as a word that reads as 0.
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

std::string checkOpened(LatticeModel& model) {
  if (const std::string wrong = checkRuns(model); !wrong.empty()) return wrong;
  const std::string saved = writeDocument(model);
  const auto again = freshModel();
  const OpenResult result = readDocument(*again, saved);
  if (result.status != OpenStatus::kOpened) return "the saved document does not open: " + result.message;
  if (!holdsInfinity(saved) && writeDocument(*again) != saved) return "the saved document reads as another";
  return {};
}

}  // namespace

std::string checkDocument(std::string_view text) {
  const auto model = freshModel();
  const std::string before = writeDocument(*model);
  bool announced = false;
  const OpenResult result =
      readDocument(*model, text, [&announced](const DocumentHeader&) { announced = true; });
  if ((result.status == OpenStatus::kOpened) != result.message.empty()) return "status and message disagree";
  if (result.message.find('\n') != std::string::npos) return "the message has several lines";
  if (!announced && writeDocument(*model) != before) return "the model changed without a header";
  switch (result.status) {
    case OpenStatus::kOpened:
      return announced ? checkOpened(*model) : "opened without a header";
    case OpenStatus::kCutShort:
      return announced ? checkRuns(*model) : "";
    case OpenStatus::kRefused:
    case OpenStatus::kUnreadable:
      return announced ? "a header was announced and then nothing applied" : "";
  }
  return "no such status";
}

}  // namespace quorvane
