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
  /// Both outlive the controller. Connects the panel's controls with their handlers. rules: shows names and
  /// colours of pixel types too.
  PixelTypeController(Ui::MainWindow& ui, RuleController& rules);

  /// The panel before there is a system.
  void showNoSystem();
  /// Selects the first pixel type in each list.
  void selectFirstItems();
  /// Enables what is of use as soon as there is a system.
  void enableControls();
  /// How many pixel types a system has, or the next one will have.
  void showNumPixelTypes(int numTypes);

  /// Fills every list of pixel types in the window anew, and keeps what is selected.
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
