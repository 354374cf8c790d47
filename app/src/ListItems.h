#pragma once

#include <QComboBox>
#include <QString>

#include "app/ColorWell.h"
#include "model/LatticeModel.h"

namespace quorvane {

/// "index - name", as lists and labels name a pixel type or a rule.
QString pixelTitle(const LatticeModel& model, int type);
QString ruleTitle(const LatticeModel& model, int rule);
/// The same, or "Any pixel type" for -1.
QString endPointTitle(const LatticeModel& model, int end);

Rgb pixelColor(const LatticeModel& model, int type);

/// "%.3f", as the panel shows energies and probabilities.
QString threeDecimals(double value);

void addPixelTypes(QComboBox& list, const LatticeModel& model);
/// Refills a list with the pixel types and keeps its selection, as restoreSelection does.
void refillPixelTypes(QComboBox& list, const LatticeModel& model);
/// Restores the selection of a refilled list; selects the first item if the former one no longer exists.
void restoreSelection(QComboBox& list, int index);
/// Selects the item for a value of the model, or none if the list does not have it.
void selectValue(QComboBox& list, int index);

}  // namespace quorvane
