#pragma once

#include <QObject>
#include <memory>

QT_BEGIN_NAMESPACE
namespace Ui {
class MainWindow;
}
QT_END_NAMESPACE

namespace quorvane {

class LatticeModel;
class RulePanel;

/// The rule panel: the list of rules, the selected one with its parameter, facilitation and flags, and the
/// group that makes the next one.
class RuleController : public QObject {
  Q_OBJECT

 public:
  /// ui outlives the controller. Connects the panel's controls.
  explicit RuleController(Ui::MainWindow& ui);
  ~RuleController() override;

  /// The panel before there is a system.
  void showNoSystem();
  /// Selects the first item of each list that names rules or pixel types.
  void selectFirstItems();
  /// Enables the controls that need a system.
  void enableControls();

  /// Refills the lists of pixel types and keeps the selections.
  void refreshPixelLists();
  void refreshRuleList();
  void noSelectedRule();
  void refreshSelectedRule();
  void refreshSelectedFacPixel();
  void refreshNewRulePixelA();
  void refreshNewRulePixelB();

  void listSelectedRuleChanged();
  void textRuleNameChanged();
  void listSelectedRuleFacNumChanged();
  void listSelectedRuleFacPixelChanged();
  void listNewRulePixelAChanged() { refreshNewRulePixelA(); }
  void listNewRulePixelBChanged() { refreshNewRulePixelB(); }
  void buttonAddNewRuleClicked();
  void buttonDelRuleClicked();
  void sliderSelectedRuleParamChanged();
  void buttonZeroParamClicked();
  void checkSelectedRuleDisabledChanged();
  void checkSelectedRuleIgnoreEnergyChanged();

 private:
  void connectControls();

  /// -1 if there is no rule.
  int selectedRule() const;
  void resetNewRule();
  void setParam(double parameter);

  Ui::MainWindow& ui_;
  LatticeModel& model_;
  std::unique_ptr<RulePanel> panel_;
};

}  // namespace quorvane
