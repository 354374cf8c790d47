#include "ListItems.h"

#include "app/FixedDecimals.h"
#include "app/PrintableText.h"

namespace quorvane {
namespace {

QString title(int index, const std::string& name) {
  return QString::number(index) + " - " + printableText(name);
}

}  // namespace

QString pixelTitle(const LatticeModel& model, int type) { return title(type, model.getPixelName(type)); }

QString ruleTitle(const LatticeModel& model, int rule) { return title(rule, model.getRuleName(rule)); }

QString endPointTitle(const LatticeModel& model, int end) {
  return end == kAnyPixelType ? QStringLiteral("Any pixel type") : pixelTitle(model, end);
}

Rgb pixelColor(const LatticeModel& model, int type) {
  return {model.getPixelColorR(type), model.getPixelColorG(type), model.getPixelColorB(type)};
}

QString threeDecimals(double value) { return fixedDecimals(value, 3); }

void addPixelTypes(QComboBox& list, const LatticeModel& model) {
  for (int type = 0; type < model.getNumPixelTypes(); ++type) list.addItem(pixelTitle(model, type));
}

void refillPixelTypes(QComboBox& list, const LatticeModel& model) {
  const int remembered = list.currentIndex();
  list.clear();
  addPixelTypes(list, model);
  restoreSelection(list, remembered);
}

void restoreSelection(QComboBox& list, int index) {
  list.setCurrentIndex(index >= 0 && index < list.count() ? index : 0);
}

void selectValue(QComboBox& list, int index) {
  list.setCurrentIndex(index >= 0 && index < list.count() ? index : -1);
}

}  // namespace quorvane
