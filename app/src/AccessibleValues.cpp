#include "AccessibleValues.h"

#include <algorithm>
#include <cmath>

#include "app/DoubleSlider.h"
#include "app/Stepper.h"

namespace quorvane {
namespace {

/// The number passed by assistive technology; NaN if there is none.
double numberOf(const QVariant& value) {
  bool isNumber = false;
  const double number = value.toDouble(&isNumber);
  return isNumber ? number : std::nan("");
}

}  // namespace

AccessibleSlider::AccessibleSlider(DoubleSlider& slider) : QAccessibleWidget(&slider, QAccessible::Slider) {}

DoubleSlider& AccessibleSlider::slider() const { return static_cast<DoubleSlider&>(*widget()); }

void* AccessibleSlider::interface_cast(QAccessible::InterfaceType type) {
  if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
  return QAccessibleWidget::interface_cast(type);
}

QVariant AccessibleSlider::currentValue() const { return slider().value(); }

void AccessibleSlider::setCurrentValue(const QVariant& value) {
  if (slider().isEnabled()) slider().moveTo(numberOf(value));
}

QVariant AccessibleSlider::minimumValue() const { return slider().minimumValue(); }

QVariant AccessibleSlider::maximumValue() const { return slider().maximumValue(); }

QVariant AccessibleSlider::minimumStepSize() const { return std::pow(10.0, -slider().decimals()); }

AccessibleStepper::AccessibleStepper(Stepper& stepper) : QAccessibleWidget(&stepper, QAccessible::SpinBox) {}

Stepper& AccessibleStepper::stepper() const { return static_cast<Stepper&>(*widget()); }

void* AccessibleStepper::interface_cast(QAccessible::InterfaceType type) {
  if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
  if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
  return QAccessibleWidget::interface_cast(type);
}

QVariant AccessibleStepper::currentValue() const { return stepper().value(); }

void AccessibleStepper::setCurrentValue(const QVariant& value) {
  const double number = numberOf(value);
  if (!stepper().isEnabled() || std::isnan(number)) return;
  const double inside = std::clamp<double>(number, stepper().minimum(), stepper().maximum());
  stepper().stepBy(static_cast<int>(std::lround(inside)) - stepper().value());
}

QVariant AccessibleStepper::minimumValue() const { return stepper().minimum(); }

QVariant AccessibleStepper::maximumValue() const { return stepper().maximum(); }

QVariant AccessibleStepper::minimumStepSize() const { return stepper().singleStep(); }

QString AccessibleStepper::text(int start, int end) const { return stepper().text().mid(start, end - start); }

int AccessibleStepper::characterCount() const { return static_cast<int>(stepper().text().size()); }

QString AccessibleStepper::attributes(int, int* start, int* end) const {
  *start = 0;
  *end = characterCount();
  return {};
}

void AccessibleStepper::selection(int, int* start, int* end) const { *start = *end = 0; }

}  // namespace quorvane
