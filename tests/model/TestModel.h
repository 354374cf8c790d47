#pragma once

#include <atomic>
#include <initializer_list>
#include <memory>
#include <vector>

#include "model/LatticeModel.h"

namespace quorvane {

inline constexpr int kAny = kAnyPixelType;

/// Without a wait behind a sweep.
inline constexpr int kFastest = 1'000'000'000;
/// Counts to more than an int can hold: only a stop or another speed ends the wait.
inline constexpr int kEndlessWait = 4;

/// A model that counts redraw requests.
class TestModel : public LatticeModel {
 public:
  TestModel() { awakeFromNib(); }
  ~TestModel() override { endRunLoops(); }

  std::atomic<int> redraws{0};
  std::atomic<int> redrawsFromRunLoop{0};

 protected:
  void requestRedraw() override { ++redraws; }
  void requestRedrawFromRunLoop() override { ++redrawsFromRunLoop; }
};

inline std::unique_ptr<TestModel> makeModel(int numTypes, int imax, int jmax) {
  auto model = std::make_unique<TestModel>();
  model->initializeLatticeModel(numTypes, imax, jmax);
  return model;
}

/// The rule indices in a type's row.
inline std::vector<int> rowOf(const LatticeModel& model, int type) {
  std::vector<int> row;
  for (int k = 0; k < model.varAccessibleRulesForSiteIDCount[type]; ++k)
    row.push_back(model.varAccessibleRulesForSiteID[type][k]);
  return row;
}

inline void fillLattice(LatticeModel& model, int type) {
  for (int i = 0; i < model.getIMax(); ++i)
    for (int j = 0; j < model.getJMax(); ++j) model.setSiteValue(i, j, type);
}

}  // namespace quorvane
