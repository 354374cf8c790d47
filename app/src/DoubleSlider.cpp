#include "app/DoubleSlider.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QLocale>
#include <QScopedValueRollback>
#include <algorithm>
#include <cmath>

#include "app/FixedDecimals.h"

namespace quorvane {
namespace {

constexpr int kLogarithmicSteps = 400;

double roundToTwoDigits(double value) {
  const double unit = std::pow(10.0, std::floor(std::log10(value)) - 1.0);
  return std::round(value / unit) * unit;
}

/// The largest power of ten that is at most a hundredth of the knob's range.
int keyStep(int knobPositions) {
  int step = 1;
  while (step * 10 <= knobPositions / 100) step *= 10;
  return step;
}

}  // namespace

DoubleSlider::DoubleSlider(QWidget* parent) : QSlider(parent) { placeKnob(); }

void DoubleSlider::setValue(double value) {
  const bool same = value == value_;
  value_ = value;
  placeKnob();
  showValue();
  if (!same) tellValue();
}

void DoubleSlider::moveTo(double value) {
  if (std::isnan(value)) return;
  const auto [low, high] = std::minmax(minimum_, maximum_);
  const double reached = std::clamp(decimals_ == 0 ? std::round(value) : value, low, high);
  if (reached == value_) return;
  setValue(reached);
  emit moved(value_);
}

void DoubleSlider::tellValue() {
  // The base class only announces changes of the knob's position.
  QAccessibleValueChangeEvent event(this, value_);
  QAccessible::updateAccessibility(&event);
}

void DoubleSlider::setMinimumValue(double minimum) {
  minimum_ = minimum;
  placeKnob();
}

void DoubleSlider::setMaximumValue(double maximum) {
  maximum_ = maximum;
  placeKnob();
}

void DoubleSlider::setStepsPerUnit(int steps) {
  stepsPerUnit_ = steps;
  placeKnob();
}

void DoubleSlider::setDecimals(int decimals) {
  decimals_ = decimals;
  showValue();
}

void DoubleSlider::setLogarithmic(bool logarithmic) {
  logarithmic_ = logarithmic;
  placeKnob();
}

void DoubleSlider::placeKnob() {
  const QScopedValueRollback placing(placingKnob_, true);
  const int first = knobOf(minimum_), last = knobOf(maximum_);
  setRange(first, last);
  setSingleStep(logarithmic_ ? kLogarithmicSteps / 100 : keyStep(last - first));
  setPageStep(10 * singleStep());
  QSlider::setValue(knobOf(value_));
}

int DoubleSlider::knobOf(double value) const {
  const double low = std::min(minimum_, maximum_), high = std::max(minimum_, maximum_);
  const double inside = value >= low ? std::min(value, high) : low;
  if (!logarithmic_) return static_cast<int>(std::lround(inside * stepsPerUnit_));
  if (!(low > 0.0) || low == high) return 0;
  return static_cast<int>(std::lround(kLogarithmicSteps * std::log(inside / low) / std::log(high / low)));
}

double DoubleSlider::valueOf(int knob) const {
  if (!logarithmic_) return static_cast<double>(knob) / stepsPerUnit_;
  const double way = static_cast<double>(knob) / kLogarithmicSteps;
  return std::clamp(roundToTwoDigits(minimum_ * std::pow(maximum_ / minimum_, way)), minimum_, maximum_);
}

void DoubleSlider::sliderChange(SliderChange change) {
  QSlider::sliderChange(change);
  if (change != SliderValueChange || placingKnob_) return;
  value_ = valueOf(QSlider::value());
  showValue();
  tellValue();
  emit moved(value_);
}

void DoubleSlider::keyPressEvent(QKeyEvent* event) {
  const bool up = event->key() == Qt::Key_Right || event->key() == Qt::Key_Up;
  const bool down = event->key() == Qt::Key_Left || event->key() == Qt::Key_Down;
  if (event->modifiers().testFlag(Qt::ShiftModifier) && (up || down))
    setSliderPosition(sliderPosition() + (up ? 1 : -1));
  else
    QSlider::keyPressEvent(event);
}

void DoubleSlider::showValue() {
  emit valueShown(decimals_ == 0 ? QLocale().toString(static_cast<qlonglong>(value_))
                                 : fixedDecimals(value_, decimals_));
}

}  // namespace quorvane
