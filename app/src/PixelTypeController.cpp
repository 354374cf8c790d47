#include "app/PixelTypeController.h"

#include "ConnectButton.h"
#include "ListItems.h"
#include "TypedNames.h"
#include "app/RuleController.h"
#include "ui_MainWindow.h"

namespace quorvane {
namespace {

/// The masquerade list omits the selected type.
int masqueradeTypeOf(int item, int selected) { return item < selected ? item : item + 1; }
int masqueradeItemOf(int type, int selected) { return type > selected ? type - 1 : type; }

}  // namespace

PixelTypeController::PixelTypeController(Ui::MainWindow& ui, RuleController& rules)
    : ui_(ui), model_(*ui.myGraphicalLatticeModel), rules_(rules) {
  connectControls();
}

void PixelTypeController::connectControls() {
  using Self = PixelTypeController;
  connect(ui_.listPaintType, &QComboBox::activated, this, &Self::listPaintTypeChanged);
  connect(ui_.textPixelName, &NameField::nameEdited, this, &Self::textPixelNameChanged);
  connect(ui_.listSelectPixelType, &QComboBox::activated, this, &Self::listSelectedPixelChanged);
  connect(ui_.colorSelectedPixelColor, &ColorWell::picked, this, &Self::colorSelectedPixelColorChanged);
  connect(ui_.sliderSelectedPixelPersistence, &DoubleSlider::moved, this,
          &Self::sliderSelectedPixelPersChanged);
  connect(ui_.sliderSelectedPixelTrans, &DoubleSlider::moved, this, &Self::sliderSelectedPixelTransChanged);
  connect(ui_.sliderPixelField, &DoubleSlider::moved, this, &Self::sliderPixelFieldChanged);
  connectButton(ui_.buttonZeroPixelField, this, &Self::buttonZeroPixelFieldPushed);
  connectButton(ui_.buttonAddNewPixel, this, &Self::buttonAddNewPixelClicked);
  connect(ui_.checkImmobilePixel, &QCheckBox::clicked, this, &Self::checkImmobilePixelChanged);
  connect(ui_.checkMasqueradePixel, &QCheckBox::clicked, this, &Self::checkMasqueradePixelChanged);
  connect(ui_.listMasqueradeType, &QComboBox::activated, this, &Self::listMasqueradeTypeChanged);
}

void PixelTypeController::showNoSystem() { showMasqueradeControls(false); }

void PixelTypeController::selectFirstItems() {
  ui_.listPaintType->setCurrentIndex(0);
  ui_.listSelectPixelType->setCurrentIndex(0);
}

void PixelTypeController::enableControls() {
  if (model_.getNumPixelTypes() < kMaxPixelTypes) ui_.buttonAddNewPixel->setEnabled(true);
  for (QWidget* control : std::initializer_list<QWidget*>{
           ui_.listSelectPixelType, ui_.textPixelName, ui_.sliderSelectedPixelTrans,
           ui_.sliderSelectedPixelPersistence, ui_.checkImmobilePixel, ui_.colorSelectedPixelColor,
           ui_.sliderPixelField, ui_.buttonZeroPixelField, ui_.listPaintType})
    control->setEnabled(true);
}

void PixelTypeController::showNumPixelTypes(int numTypes) {
  ui_.stepperNumPixelTypes->setValue(numTypes);
  ui_.textNumPixelTypes->setText(QString::number(numTypes));
}

int PixelTypeController::selectedPixelType() const { return ui_.listSelectPixelType->currentIndex(); }

void PixelTypeController::refreshPixelLists() {
  refillPixelTypes(*ui_.listPaintType, model_);
  refreshSelectedPaintTool();
  refillPixelTypes(*ui_.listSelectPixelType, model_);
  refreshSelectedPixel();
  rules_.refreshPixelLists();
}

void PixelTypeController::refreshSelectedPaintTool() {
  ui_.colorPaintType->setRgb(pixelColor(model_, ui_.listPaintType->currentIndex()));
}

void PixelTypeController::refreshSelectedPixel() {
  const int s = selectedPixelType();
  ui_.textPixelName->showName(s, model_.getPixelName(s));
  ui_.checkImmobilePixel->setChecked(model_.getPixelImmobile(s) != 0);
  ui_.colorSelectedPixelColor->setRgb(pixelColor(model_, s));
  ui_.sliderSelectedPixelPersistence->setValue(model_.getPixelPersistence(s));
  ui_.sliderSelectedPixelTrans->setValue(model_.getPixelAlpha(s));
  showPixelField(model_.getPixelField(s));
  showMasquerade(s);
}

void PixelTypeController::showMasquerade(int selected) {
  const int masquerade = model_.getPixelMasqueradeAs(selected);
  const bool masquerades = masquerade != kNoMasquerade;
  ui_.checkMasqueradePixel->setEnabled(ui_.listSelectPixelType->count() >= 2);
  ui_.checkMasqueradePixel->setChecked(masquerades);
  ui_.listMasqueradeType->setCurrentIndex(0);
  refreshMasqueradePixelList();
  showMasqueradeControls(masquerades);
  if (!masquerades) return;
  selectValue(*ui_.listMasqueradeType, masqueradeItemOf(masquerade, selected));
  refreshSelectedMasqueradePixel();
}

void PixelTypeController::refreshMasqueradePixelList() {
  const int remembered = ui_.listMasqueradeType->currentIndex();
  const int s = selectedPixelType();
  ui_.listMasqueradeType->clear();
  for (int type = 0; type < model_.getNumPixelTypes(); ++type)
    if (type != s) ui_.listMasqueradeType->addItem(pixelTitle(model_, type));
  restoreSelection(*ui_.listMasqueradeType, remembered);
}

void PixelTypeController::refreshSelectedMasqueradePixel() {
  ui_.colorMasqueradeType->setRgb(pixelColor(model_, model_.getPixelMasqueradeAs(selectedPixelType())));
}

void PixelTypeController::showMasqueradeControls(bool shown) {
  ui_.labelMasqueradeType->setVisible(shown);
  ui_.listMasqueradeType->setVisible(shown);
  ui_.colorMasqueradeType->setVisible(shown);
}

void PixelTypeController::showPixelField(double energy) {
  ui_.sliderPixelField->setValue(energy);
  ui_.textPixelField->setText(threeDecimals(energy));
}

void PixelTypeController::refreshSelectedRule() {
  if (model_.getNumRules() > 0) rules_.refreshSelectedRule();
}

void PixelTypeController::listPaintTypeChanged() {
  model_.setPaintbrushColor(ui_.listPaintType->currentIndex());
  refreshSelectedPaintTool();
}

void PixelTypeController::listSelectedPixelChanged() {
  commitTypedNames(ui_);
  refreshSelectedPixel();
}

void PixelTypeController::textPixelNameChanged() {
  const int type = ui_.textPixelName->item();
  if (type < 0) return;
  model_.setPixelName(type, ui_.textPixelName->text().toStdString());
  // Refreshing the selected rule would discard a name that is being typed for it, so apply it first.
  ui_.textSelectedRuleName->commit();
  refreshPixelLists();
  refreshSelectedRule();
}

void PixelTypeController::colorSelectedPixelColorChanged() {
  const auto [red, green, blue] = ui_.colorSelectedPixelColor->rgb();
  model_.setPixelColor(selectedPixelType(), red, green, blue);
  ui_.textSelectedRuleName->commit();
  refreshSelectedPaintTool();
  refreshSelectedRule();
  rules_.refreshNewRulePixelA();
  rules_.refreshNewRulePixelB();
}

void PixelTypeController::sliderSelectedPixelPersChanged() {
  model_.setPixelPersistence(selectedPixelType(), ui_.sliderSelectedPixelPersistence->value());
}

void PixelTypeController::sliderSelectedPixelTransChanged() {
  model_.setPixelAlpha(selectedPixelType(), ui_.sliderSelectedPixelTrans->value());
}

void PixelTypeController::sliderPixelFieldChanged() { setPixelField(ui_.sliderPixelField->value()); }

void PixelTypeController::buttonZeroPixelFieldPushed() { setPixelField(0.0); }

void PixelTypeController::setPixelField(double energy) {
  showPixelField(energy);
  model_.setPixelField(selectedPixelType(), energy);
}

void PixelTypeController::buttonAddNewPixelClicked() {
  commitTypedNames(ui_);
  model_.addPixelType();
  const int numTypes = model_.getNumPixelTypes();
  showNumPixelTypes(numTypes);
  refreshPixelLists();
  ui_.listSelectPixelType->setCurrentIndex(ui_.listSelectPixelType->count() - 1);
  refreshSelectedPixel();
  if (numTypes == kMaxPixelTypes) ui_.buttonAddNewPixel->setEnabled(false);
}

void PixelTypeController::checkImmobilePixelChanged() {
  model_.setPixelImmobile(selectedPixelType(), ui_.checkImmobilePixel->isChecked() ? 1 : 0);
}

void PixelTypeController::checkMasqueradePixelChanged() {
  const int s = selectedPixelType();
  const bool masquerades = ui_.checkMasqueradePixel->isChecked();
  showMasqueradeControls(masquerades);
  if (!masquerades) return model_.setPixelMasqueradeAs(s, kNoMasquerade);
  ui_.listMasqueradeType->setCurrentIndex(0);
  model_.setPixelMasqueradeAs(s, masqueradeTypeOf(0, s));
  refreshSelectedMasqueradePixel();
}

void PixelTypeController::listMasqueradeTypeChanged() {
  const int s = selectedPixelType();
  model_.setPixelMasqueradeAs(s, masqueradeTypeOf(ui_.listMasqueradeType->currentIndex(), s));
  refreshSelectedMasqueradePixel();
}

}  // namespace quorvane
