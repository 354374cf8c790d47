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
  /// Clears and disables the controls, for no rule.
  void showNoRule();
  void showFacPixel(int rule);
  /// Shows the facilitating type with its label and colour only for rules that need neighbours.
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
