// The model with plain fields instead of `Relaxed` ones, painted while it runs: the thread sanitizer must
// report it.
#include <memory>

#include "model/LatticeModel.h"

int main() {
  using namespace quorvane;
  const auto model = std::make_unique<LatticeModel>();
  model->awakeFromNib();
  model->initializeLatticeModel(2, 16, 16);
  model->makeNewRule("swap", kSwap, kAnyPixelType, kAnyPixelType);
  model->setRuleParam(0, 1.0);
  model->setSimulationSpeed(1'000'000'000);
  model->runLatticeModelInBackground();
  for (int k = 0; k < 100'000; ++k) model->setSiteValue(k % 16, k / 16 % 16, k % 2);
  model->endRunLoops();
}
