#pragma once

#include <QMainWindow>
#include <QObject>
#include <QString>
#include <string>

#include "view/GraphicalLatticeModelGL.h"

QT_BEGIN_NAMESPACE
namespace Ui {
class MainWindow;
}
QT_END_NAMESPACE

namespace quorvane {

/// The main window's controller: hands every edit of a control to the model, and reads the model back into
/// the controls. Holds no data of its own but where documents are or were last. Setting a control
/// from here runs no handler; only a user's action does. Main thread only.
class MainViewController : public QObject {
  Q_OBJECT

 public:
  /// Both must outlive the controller. Connects every control with its handler.
  MainViewController(QMainWindow* myWindow, Ui::MainWindow* ui);

  /// The start values of the controls. No model yet: Initialise or Open makes one.
  void awakeFromNib();
  /// Puts the panel into its initialised state; there is a model from now on.
  void awakenControls();

  // The model's controls.
  void stepperChanged();
  void sliderWidthHeightChanged();
  void buttonInitializeModelAction();
  void buttonRemakeModelClick();
  void sliderSimulationSpeedChanged();
  void buttonRunLatticeModelAction();
  void buttonStopLatticeModelAction();
  void checkPauseWhilePaint();
  void listPaintTypeChanged();
  void EnterFullScreen();

  // Documents.
  void buttonOpenSystemClicked();
  void buttonSaveSystemClicked();

  // The pixel type panel.
  void refreshPixelLists();
  void refreshSelectedPaintTool();
  void refreshSelectedPixel();
  void refreshMasqueradePixelList();
  void refreshSelectedMasqueradePixel();
  void textPixelNameChanged();
  void listSelectedPixelChanged();
  void colorSelectedPixelColorChanged();
  void sliderSelectedPixelPersChanged();
  void sliderSelectedPixelTransChanged();
  void sliderPixelFieldChanged();
  void buttonZeroPixelFieldPushed();
  void buttonAddNewPixelClicked();
  void checkImmobilePixelChanged();
  void checkMasqueradePixelChanged();
  void listMasqueradeTypeChanged();

  // The rule panel.
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
  void listNewRulePixelAChanged();
  void listNewRulePixelBChanged();
  void buttonAddNewRuleClicked();
  void buttonDelRuleClicked();

  // The parameter and the flags of the selected rule.
  void sliderSelectedRuleParamChanged();
  void buttonZeroParamClicked();
  void checkSelectedRuleDisabledChanged();
  void checkSelectedRuleIgnoreEnergyChanged();

  /// Hands names over that were typed and not yet handed to the model. A field does so when it loses the
  /// focus, but on some desktops a click on a button leaves the focus where it is.
  void commitTypedNames();

  /// Tells of work that an earlier window has kept in a file, and of others beside it, and lets Open begin
  /// with that file.
  void offerKeptWork(const QString& path, int others);

 signals:
  /// There is a system, by Initialise or Open.
  void systemStarted();
  /// The system was saved as this document.
  void systemSaved(const std::string& document);

 private:
  void connectModelControls();
  void connectPixelTypePanel();
  void connectRulePanel();

  void remake(int numTypes);
  void showRunningConfiguration();
  void showStoppedConfiguration();
  /// Lets the one that is enabled have the focus: it is what the user wants next.
  void focusRunOrStop();

  void commitTypedRuleName();

  void open(const QString& path);
  void save(const QString& path);
  void showDocumentInTitle(const QString& path);

  int selectedPixelType() const;
  /// -1 if there is no rule.
  int selectedRule() const;
  void showMasqueradeControls(bool shown);
  void showPixelField(double energy);
  void showFacNumControls(bool shown);
  void showFacPixelControls(bool shown);
  void setParamRange(double minimum, double maximum);
  void showParam(double parameter);
  void showRuleType(int type, int facNum);

  QMainWindow* myWindow;
  Ui::MainWindow* ui;
  GraphicalLatticeModelGL* myGraphicalLatticeModel;
  QString folder_, keptWork_;
};

}  // namespace quorvane
