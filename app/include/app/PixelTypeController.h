#pragma once

#include <QObject>

QT_BEGIN_NAMESPACE
namespace Ui {
class MainWindow;
}
QT_END_NAMESPACE

namespace quorvane {

class LatticeModel;
class RuleController;

/// The pixel type panel and the paint tool: the lists of pixel types, and the selected type with its name,
/// colour, trace, masquerade and field energy.
class PixelTypeController : public QObject {
  Q_OBJECT

 public:
  /// Both outlive the controller. Connects the panel's controls. rules: also shows names and colours of pixel
  /// types.
  PixelTypeController(Ui::MainWindow& ui, RuleController& rules);

  /// The panel before there is a system.
  void showNoSystem();
  /// Selects the first pixel type in each list.
  void selectFirstItems();
  /// Enables the controls that need a system.
  void enableControls();
  /// The number of pixel types of the system, or of the one that Initialise will make.
  void showNumPixelTypes(int numTypes);

  /// Refills every list of pixel types in the window and keeps the selections.
  void refreshPixelLists();
  void refreshSelectedPaintTool();
  void refreshSelectedPixel();
  void refreshMasqueradePixelList();
  void refreshSelectedMasqueradePixel();

  void listPaintTypeChanged();
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

 private:
  void connectControls();

  int selectedPixelType() const;
  void setPixelField(double energy);
  void refreshSelectedRule();
  void showMasquerade(int selected);
  void showMasqueradeControls(bool shown);
  void showPixelField(double energy);

  Ui::MainWindow& ui_;
  LatticeModel& model_;
  RuleController& rules_;
};

}  // namespace quorvane
