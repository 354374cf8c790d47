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

/// The main window's controller: every operation of the window under one name. Four controllers carry them
/// out, each with its own controls: it hands every edit to the model, and reads the model back into the
/// controls. None holds data of its own but where documents are or were last. Setting a control from code
/// runs no handler; only a user's action does. Main thread only.
class MainViewController : public QObject {
  Q_OBJECT

 public:
  /// Both must outlive the controller. Connects every control with its handler.
  MainViewController(QMainWindow* myWindow, Ui::MainWindow* ui);

  /// The start values of the controls. No model yet: Initialise or Open makes one.
  void awakeFromNib() { run_.awakeFromNib(); }
  /// Puts the panel into its initialised state; there is a model from now on.
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
  /// Tells of work that an earlier window has kept in a file, and of others beside it, and lets Open begin
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

  /// Hands names over that were typed and not yet handed to the model.
  void commitTypedNames();

 signals:
  /// There is a system, by Initialise or Open.
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
