#pragma once

#include <QMainWindow>
#include <QObject>
#include <QString>
#include <string>

#include "app/DocumentController.h"
#include "app/PixelTypeController.h"
#include "app/RuleController.h"
#include "app/RunController.h"

namespace quorvane {

/// The main window's controller, with every operation of the window under one name. Four controllers
/// implement them, each for its own controls: it writes every edit to the model and refreshes the controls
/// from the model. They hold no data except the location of documents. Setting a control from code calls no
/// handler; only user actions do. Main thread only.
class MainViewController : public QObject {
  Q_OBJECT

 public:
  /// Both must outlive the controller. Connects every control with its handler.
  MainViewController(QMainWindow* myWindow, Ui::MainWindow* ui);

  /// The start values of the controls. No model yet: Initialise or Open makes one.
  void awakeFromNib() { run_.awakeFromNib(); }
  /// Puts the panel into its initialised state, after which there is always a model.
  void awakenControls() { run_.awakenControls(); }

  // The model's controls.
  void stepperChanged() { run_.stepperChanged(); }
  void sliderWidthHeightChanged() { run_.sliderWidthHeightChanged(); }
  void buttonInitializeModelAction() { run_.buttonInitializeModelAction(); }
  void buttonRemakeModelClick() { run_.buttonRemakeModelClick(); }
  void sliderSimulationSpeedChanged() { run_.sliderSimulationSpeedChanged(); }
  void buttonRunLatticeModelAction() { run_.buttonRunLatticeModelAction(); }
  void buttonStopLatticeModelAction() { run_.buttonStopLatticeModelAction(); }
  void checkPauseWhilePaint() { run_.checkPauseWhilePaint(); }
  void EnterFullScreen() { run_.EnterFullScreen(); }

  // Documents.
  void buttonOpenSystemClicked() { documents_.buttonOpenSystemClicked(); }
  void buttonSaveSystemClicked() { documents_.buttonSaveSystemClicked(); }
  /// Reports a file with work kept by an earlier window, and whether there are more, and makes Open start
  /// with that file.
  void offerKeptWork(const QString& path, int others) { documents_.offerKeptWork(path, others); }

  // The paint tool and the pixel type panel.
  void listPaintTypeChanged() { pixelTypes_.listPaintTypeChanged(); }
  void refreshPixelLists() { pixelTypes_.refreshPixelLists(); }
  void refreshSelectedPaintTool() { pixelTypes_.refreshSelectedPaintTool(); }
  void refreshSelectedPixel() { pixelTypes_.refreshSelectedPixel(); }
  void refreshMasqueradePixelList() { pixelTypes_.refreshMasqueradePixelList(); }
  void refreshSelectedMasqueradePixel() { pixelTypes_.refreshSelectedMasqueradePixel(); }
  void textPixelNameChanged() { pixelTypes_.textPixelNameChanged(); }
  void listSelectedPixelChanged() { pixelTypes_.listSelectedPixelChanged(); }
  void colorSelectedPixelColorChanged() { pixelTypes_.colorSelectedPixelColorChanged(); }
  void sliderSelectedPixelPersChanged() { pixelTypes_.sliderSelectedPixelPersChanged(); }
  void sliderSelectedPixelTransChanged() { pixelTypes_.sliderSelectedPixelTransChanged(); }
  void sliderPixelFieldChanged() { pixelTypes_.sliderPixelFieldChanged(); }
  void buttonZeroPixelFieldPushed() { pixelTypes_.buttonZeroPixelFieldPushed(); }
  void buttonAddNewPixelClicked() { pixelTypes_.buttonAddNewPixelClicked(); }
  void checkImmobilePixelChanged() { pixelTypes_.checkImmobilePixelChanged(); }
  void checkMasqueradePixelChanged() { pixelTypes_.checkMasqueradePixelChanged(); }
  void listMasqueradeTypeChanged() { pixelTypes_.listMasqueradeTypeChanged(); }

  // The rule panel.
  void refreshRuleList() { rules_.refreshRuleList(); }
  void noSelectedRule() { rules_.noSelectedRule(); }
  void refreshSelectedRule() { rules_.refreshSelectedRule(); }
  void refreshSelectedFacPixel() { rules_.refreshSelectedFacPixel(); }
  void refreshNewRulePixelA() { rules_.refreshNewRulePixelA(); }
  void refreshNewRulePixelB() { rules_.refreshNewRulePixelB(); }
  void listSelectedRuleChanged() { rules_.listSelectedRuleChanged(); }
  void textRuleNameChanged() { rules_.textRuleNameChanged(); }
  void listSelectedRuleFacNumChanged() { rules_.listSelectedRuleFacNumChanged(); }
  void listSelectedRuleFacPixelChanged() { rules_.listSelectedRuleFacPixelChanged(); }
  void listNewRulePixelAChanged() { rules_.listNewRulePixelAChanged(); }
  void listNewRulePixelBChanged() { rules_.listNewRulePixelBChanged(); }
  void buttonAddNewRuleClicked() { rules_.buttonAddNewRuleClicked(); }
  void buttonDelRuleClicked() { rules_.buttonDelRuleClicked(); }
  void sliderSelectedRuleParamChanged() { rules_.sliderSelectedRuleParamChanged(); }
  void buttonZeroParamClicked() { rules_.buttonZeroParamClicked(); }
  void checkSelectedRuleDisabledChanged() { rules_.checkSelectedRuleDisabledChanged(); }
  void checkSelectedRuleIgnoreEnergyChanged() { rules_.checkSelectedRuleIgnoreEnergyChanged(); }

  /// Applies typed names that are not in the model yet.
  void commitTypedNames();

 signals:
  /// A system was made, by Initialise or Open.
  void systemStarted();
  /// The system was saved as this document.
  void systemSaved(const std::string& document);

 private:
  Ui::MainWindow& ui_;
  RuleController rules_;
  PixelTypeController pixelTypes_;
  RunController run_;
  DocumentController documents_;
};

}  // namespace quorvane
