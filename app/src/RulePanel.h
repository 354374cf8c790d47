#pragma once

#include "model/LatticeModel.h"

namespace Ui {
class MainWindow;
}

namespace quorvane {

/// Shows one rule in the controls of the rule panel. Only reads the model. Main thread only.
class RulePanel {
 public:
  /// Both outlive the panel.
  RulePanel(Ui::MainWindow& ui, const LatticeModel& model) : ui_(ui), model_(model) {}

  void show(int rule);
  /// Empties and disables the controls, as there is no rule.
  void showNoRule();
  void showFacPixel(int rule);
  /// The type that facilitates a rule, with its label and its colour, is of use only to one that needs
  /// neighbours.
  void showFacPixelControls(bool shown);
  void showParam(double parameter);

 private:
  void showType(int rule);
  void showEndPoints(int rule);
  void showFlags(int rule);
  void showFacNumControls(bool shown);
  void setParamRange(double minimum, double maximum);

  Ui::MainWindow& ui_;
  const LatticeModel& model_;
};

}  // namespace quorvane
