#pragma once

#include <QComboBox>

#include "app/ColorWell.h"
#include "model/LatticeModel.h"

/// The lists that choose the ends of the next rule: item 0 is any pixel type, item k + 1 is type k.
namespace quorvane {

/// Fills the list anew and keeps its selection where that is still there, else selects item 0.
void refillEndPoints(QComboBox& list, const LatticeModel& model);

/// The pixel type that is chosen, or kAnyPixelType; the latter also of an empty list.
int chosenEndPoint(const QComboBox& list);

/// Shows the colour of an end point, or hides the well for kAnyPixelType, which has none.
void showEndPointColor(ColorWell& well, const LatticeModel& model, int end);

}  // namespace quorvane
