#pragma once

#include <QAccessibleWidget>

namespace quorvane {

class DoubleSlider;
class Stepper;

/// The accessible interface of a slider: its real value and range, not the positions of its knob. Setting a
/// value acts as a move by the user.
class AccessibleSlider : public QAccessibleWidget, public QAccessibleValueInterface {
 public:
  explicit AccessibleSlider(DoubleSlider& slider);

  void* interface_cast(QAccessible::InterfaceType type) override;
  QVariant currentValue() const override;
  /// No effect while the slider is disabled, or for NaN.
  void setCurrentValue(const QVariant& value) override;
  QVariant minimumValue() const override;
  QVariant maximumValue() const override;
  /// One unit of the last digit that the slider shows.
  QVariant minimumStepSize() const override;

 private:
  DoubleSlider& slider() const;
};

/// The accessible interface of a stepper: a number with a range, without the hidden text field. Setting a
/// value acts as a step by the user. Qt's cursor events require the text interface.
class AccessibleStepper : public QAccessibleWidget,
                          public QAccessibleValueInterface,
                          public QAccessibleTextInterface {
 public:
  explicit AccessibleStepper(Stepper& stepper);

  void* interface_cast(QAccessible::InterfaceType type) override;
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  QAccessibleInterface* child(int) const override { return nullptr; }
  QVariant currentValue() const override;
  /// No effect while the stepper is disabled, or for NaN.
  void setCurrentValue(const QVariant& value) override;
  QVariant minimumValue() const override;
  QVariant maximumValue() const override;
  QVariant minimumStepSize() const override;

  using QAccessibleWidget::text;
  QString text(int start, int end) const override;
  int characterCount() const override;
  int cursorPosition() const override { return characterCount(); }
  QRect characterRect(int) const override { return rect(); }
  int offsetAtPoint(const QPoint&) const override { return -1; }
  QString attributes(int offset, int* start, int* end) const override;
  // The text cannot be selected, edited or scrolled.
  int selectionCount() const override { return 0; }
  void selection(int selection, int* start, int* end) const override;
  void addSelection(int, int) override {}
  void removeSelection(int) override {}
  void setSelection(int, int, int) override {}
  void setCursorPosition(int) override {}
  void scrollToSubstring(int, int) override {}

 private:
  Stepper& stepper() const;
};

}  // namespace quorvane
