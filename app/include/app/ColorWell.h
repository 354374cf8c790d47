#pragma once

#include <QAbstractButton>
#include <QColor>

namespace quorvane {

/// A colour as the model holds it: red, green and blue, 0 to 1.
struct Rgb {
  double red = 0.0, green = 0.0, blue = 0.0;
  bool operator==(const Rgb&) const = default;
};

/// Shows a colour. An editable one opens the platform's colour dialog when it is pressed and follows the
/// dialog's current colour; cancelling the dialog brings the former colour back exactly.
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
  /// Shows no colour until the next one is set.
  void clear();

  bool isEditable() const { return editable_; }
  void setEditable(bool editable);

  QSize sizeHint() const override { return {44, 22}; }

 signals:
  /// The user has chosen a colour, or gone back to the former one.
  void picked();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void chooseColor();
  /// On the screen, and to screen readers, which read the colour as part of the name.
  void showColor();
  void pick(const Rgb& rgb);

  Rgb rgb_;
  bool hasColor_ = false;
  bool editable_ = false;
};

}  // namespace quorvane
