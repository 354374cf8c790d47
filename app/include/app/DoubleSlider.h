#pragma once

#include <QSlider>
#include <QString>

namespace quorvane {

/// A slider with a real value, on a linear or a logarithmic knob.
///
/// A value set from code is kept exactly, also outside the range, where the knob is at the end; it is rounded
/// to a knob position only when the user moves the knob. Arrow keys move by about a hundredth of the range,
/// with Shift by one knob position; page keys and the wheel move by more.
class DoubleSlider : public QSlider {
  Q_OBJECT
  Q_PROPERTY(double minimumValue READ minimumValue WRITE setMinimumValue)
  Q_PROPERTY(double maximumValue READ maximumValue WRITE setMaximumValue)
  Q_PROPERTY(double value READ value WRITE setValue)
  Q_PROPERTY(int stepsPerUnit READ stepsPerUnit WRITE setStepsPerUnit)
  Q_PROPERTY(int decimals READ decimals WRITE setDecimals)
  Q_PROPERTY(bool logarithmic READ isLogarithmic WRITE setLogarithmic)

 public:
  explicit DoubleSlider(QWidget* parent = nullptr);

  double value() const { return value_; }
  /// The value truncated toward zero.
  int intValue() const { return static_cast<int>(value_); }
  void setValue(double value);
  /// Sets a value as the user does, but exactly: it is only limited to the range, and rounded to a whole
  /// number if no decimals are shown. No effect for NaN.
  void moveTo(double value);

  double minimumValue() const { return minimum_; }
  void setMinimumValue(double minimum);
  double maximumValue() const { return maximum_; }
  void setMaximumValue(double maximum);

  /// Knob positions per unit of a linear range: 1000 lets the user reach multiples of 0.001.
  int stepsPerUnit() const { return stepsPerUnit_; }
  void setStepsPerUnit(int steps);
  /// Digits after the decimal point in valueShown; 0 shows a whole number with the locale's separators.
  int decimals() const { return decimals_; }
  void setDecimals(int decimals);
  /// A logarithmic range must be positive; on it the user reaches values of two significant digits.
  bool isLogarithmic() const { return logarithmic_; }
  void setLogarithmic(bool logarithmic);

  /// Emits valueShown, for a label that is connected after the value was set.
  void showValue();

 signals:
  /// The user has moved the knob.
  void moved(double value);
  /// The value has changed, by the user or by code; for a label that shows it.
  void valueShown(const QString& text);

 protected:
  void sliderChange(SliderChange change) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void placeKnob();
  void tellValue();
  int knobOf(double value) const;
  double valueOf(int knob) const;

  double minimum_ = 0.0, maximum_ = 1.0, value_ = 0.0;
  int stepsPerUnit_ = 1000;
  int decimals_ = 3;
  bool logarithmic_ = false;
  bool placingKnob_ = false;
};

}  // namespace quorvane
