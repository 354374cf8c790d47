#pragma once

#include <QObject>

QT_BEGIN_NAMESPACE
namespace Ui {
class MainWindow;
}
QT_END_NAMESPACE

namespace quorvane {

class GraphicalLatticeModelGL;
class PixelTypeController;
class RuleController;

/// The controls that make, size, run, stop and speed up the model, and show it in full screen. Sets which
/// controls of the whole panel are enabled, depending on whether there is a system.
class RunController : public QObject {
  Q_OBJECT

 public:
  /// All outlive the controller. Connects its controls.
  RunController(Ui::MainWindow& ui, PixelTypeController& pixelTypes, RuleController& rules);

  /// The start values of the controls. No model yet: Initialise or Open makes one.
  void awakeFromNib();
  /// Puts the panel into its initialised state, after which there is always a model.
  void awakenControls();
  /// Shows the values of an opened document in the controls of Initialise.
  void showSize(int numTypes, int density);
  /// Gives the focus to Run or Stop, whichever is enabled, as the likely next step.
  void focusRunOrStop();

  void stepperChanged();
  void sliderWidthHeightChanged();
  void buttonInitializeModelAction();
  void buttonRemakeModelClick();
  void sliderSimulationSpeedChanged();
  void buttonRunLatticeModelAction();
  void buttonStopLatticeModelAction();
  void checkPauseWhilePaint();
  void EnterFullScreen();

 signals:
  /// A system was made by Initialise.
  void systemStarted();

 private:
  void connectControls();

  void remake(int numTypes);
  void showRunningConfiguration();
  void showStoppedConfiguration();

  Ui::MainWindow& ui_;
  GraphicalLatticeModelGL& model_;
  PixelTypeController& pixelTypes_;
  RuleController& rules_;
};

}  // namespace quorvane
