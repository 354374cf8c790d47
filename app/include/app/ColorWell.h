#pragma once

#include <QAbstractButton>
#include <QColor>

namespace quorvane {

/// A colour as the model holds it: red, green and blue, 0 to 1.
struct Rgb {
  double red = 0.0, green = 0.0, blue = 0.0;
  bool operator==(const Rgb&) const = default;
};

/// Shows a colour. An editable one opens the platform's colour dialog when pressed and follows the dialog's
/// current colour; cancelling restores the former colour exactly.
class ColorWell : public QAbstractButton {
  Q_OBJECT
  Q_PROPERTY(QColor color READ color WRITE setColor)
  Q_PROPERTY(bool editable READ isEditable WRITE setEditable)

 public:
  explicit ColorWell(QWidget* parent = nullptr);

  const Rgb& rgb() const { return rgb_; }
  void setRgb(const Rgb& rgb);
  /// Invalid while the well shows no colour.
  QColor color() const;
  void setColor(const QColor& color);
  /// Shows no colour until one is set.
  void clear();

  bool isEditable() const { return editable_; }
  void setEditable(bool editable);

  QSize sizeHint() const override { return {44, 22}; }

 signals:
  /// The user has chosen a colour, or cancelled.
  void picked();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void chooseColor();
  /// Updates the well and its accessible name, which includes the colour.
  void showColor();
  void pick(const Rgb& rgb);

  Rgb rgb_;
  bool hasColor_ = false;
  bool editable_ = false;
};

}  // namespace quorvane
