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

/// The controls that make, size, run, stop and speed the model, and show it in full screen. Knows when there
/// is a system, and with it the whole panel's state.
class RunController : public QObject {
  Q_OBJECT

 public:
  /// All outlive the controller. Connects its controls with their handlers.
  RunController(Ui::MainWindow& ui, PixelTypeController& pixelTypes, RuleController& rules);

  /// The start values of the controls. No model yet: Initialise or Open makes one.
  void awakeFromNib();
  /// Puts the panel into its initialised state; there is a model from now on.
  void awakenControls();
  /// Shows what a document holds in the controls that would have made it.
  void showSize(int numTypes, int density);
  /// Gives the focus to Run or Stop, whichever is enabled: it is what the user wants next.
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
  /// There is a system, by Initialise.
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
