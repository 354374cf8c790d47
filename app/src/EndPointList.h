#pragma once

#include <QComboBox>

#include "app/ColorWell.h"
#include "model/LatticeModel.h"

/// The combo boxes for the ends of the next rule: item 0 is any pixel type, item k + 1 is type k.
namespace quorvane {

/// Refills the list and keeps its selection if it still exists, else selects item 0.
void refillEndPoints(QComboBox& list, const LatticeModel& model);

/// The selected pixel type, or kAnyPixelType, also for an empty list.
int chosenEndPoint(const QComboBox& list);

/// Shows the colour of an end point, or hides the well for kAnyPixelType, which has none.
void showEndPointColor(ColorWell& well, const LatticeModel& model, int end);

}  // namespace quorvane
