#include "SystemBuilder.h"

namespace quorvane {

SystemBuilder::SystemBuilder(int numTypes, int across, int upwards)
    : model_(std::make_unique<LatticeModel>()) {
  model_->awakeFromNib();
  model_->initializeLatticeModel(numTypes, across, upwards);
}

void SystemBuilder::type(int t, const char* name, Color color, double persistence) {
  model_->setPixelName(t, name);
  model_->setPixelColor(t, color.red, color.green, color.blue);
  model_->setPixelPersistence(t, persistence);
}

int SystemBuilder::flip(const std::string& name, int from, int to, double probability) {
  return rule(name, kIrreversibleFlip, from, to, probability);
}

int SystemBuilder::flipBothWays(const std::string& name, int endA, int endB, double probability) {
  return rule(name, kReversibleFlip, endA, endB, probability);
}

int SystemBuilder::swap(const std::string& name, int mover, int partner, double probability) {
  return rule(name, kSwap, mover, partner, probability);
}

int SystemBuilder::pairEnergy(const std::string& name, int endA, int endB, double energy) {
  const int r = rule(name, kPixelPixelInteraction, endA, endB, energy);
  model_->setInteractionParams(r, energy);
  return r;
}

void SystemBuilder::needs(int rule, int neighbours, int ofType) {
  model_->setRuleFacNum(rule, neighbours);
  model_->setRuleFacPixel(rule, ofType);
}

void SystemBuilder::flipForEachNeighbour(const std::string& name, int from, int to, double probability,
                                         int ofType) {
  for (int k = 1; k <= kNumDirections; ++k)
    needs(flip(name + ", neighbour " + std::to_string(k), from, to, probability), k, ofType);
}

int SystemBuilder::rule(const std::string& name, RuleType type, int endA, int endB, double param) {
  const int r = model_->getNumRules();
  model_->makeNewRule(name, type, endA, endB);
  model_->setRuleParam(r, param);
  return r;
}

}  // namespace quorvane
