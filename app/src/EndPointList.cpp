#include "EndPointList.h"

#include "ListItems.h"

namespace quorvane {

void refillEndPoints(QComboBox& list, const LatticeModel& model) {
  const int remembered = list.currentIndex();
  list.clear();
  list.addItem(endPointTitle(model, kAnyPixelType));
  addPixelTypes(list, model);
  restoreSelection(list, remembered);
}

int chosenEndPoint(const QComboBox& list) {
  const int item = list.currentIndex();
  return item > 0 ? item - 1 : kAnyPixelType;
}

void showEndPointColor(ColorWell& well, const LatticeModel& model, int end) {
  well.setVisible(end != kAnyPixelType);
  if (end != kAnyPixelType) well.setRgb(pixelColor(model, end));
}

}  // namespace quorvane
