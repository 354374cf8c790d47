#pragma once

#include <QObject>
#include <QWidget>

namespace quorvane {

/// Keeps the mouse wheel from editing what the user only passes over: lists, sliders and spin boxes of a
/// window take the wheel while they have the focus, and otherwise leave it to what they stand in. The wheel
/// gives no focus.
class WheelNeedsFocus : public QObject {
 public:
  /// For the controls that the window has by now.
  explicit WheelNeedsFocus(QWidget& window);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace quorvane
