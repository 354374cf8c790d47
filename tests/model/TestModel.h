#pragma once

#include <atomic>
#include <chrono>
#include <initializer_list>
#include <memory>
#include <thread>
#include <vector>

#include "model/LatticeModel.h"

namespace quorvane {

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

/// Waits until a condition holds; false if it does not within the deadline.
template <class Condition>
bool waitUntil(Condition&& holds, std::chrono::seconds deadline = std::chrono::seconds(30)) {
  const auto end = std::chrono::steady_clock::now() + deadline;
  while (!holds()) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::yield();
  }
  return true;
}

}  // namespace quorvane
