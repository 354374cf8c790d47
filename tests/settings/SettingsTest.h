#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "model/LatticeModel.h"
#include "settings/Names.h"

namespace quorvane {

/// Three types, of which two have the same name, and a rule of each kind.
inline std::unique_ptr<LatticeModel> namedModel() {
  auto model = std::make_unique<LatticeModel>();
  model->awakeFromNib();
  model->initializeLatticeModel(3, 12, 9);
  model->setPixelName(0, "Bare ground");
  model->setPixelName(1, "Tree");
  model->setPixelName(2, "Tree");
  model->makeNewRule("Growth", kIrreversibleFlip, 0, 1);
  model->makeNewRule("Turn = back", kReversibleFlip, 1, 2);
  model->makeNewRule("Walk", kSwap, 1, kAnyPixelType);
  model->makeNewRule("Attraction", kPixelPixelInteraction, 1, 2);
  model->setInteractionParams(3, 0.5);
  model->setRuleParam(3, 0.5);
  return model;
}

/// The one line of the error that a call throws; empty if it throws none.
template <class Call>
std::string errorOf(Call&& call) {
  try {
    call();
  } catch (const SettingError& error) {
    EXPECT_EQ(std::string(error.what()).find('\n'), std::string::npos);
    return error.what();
  }
  return {};
}

}  // namespace quorvane
