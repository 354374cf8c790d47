#pragma once

#include <QSpinBox>

namespace quorvane {

/// The two arrows of a spin box without its text field. Arrow keys, page keys and the wheel work too.
class Stepper : public QSpinBox {
  Q_OBJECT

 public:
  explicit Stepper(QWidget* parent = nullptr);

  void stepBy(int steps) override;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 signals:
  /// The user has stepped to another value.
  void stepped(int value);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace quorvane
