#pragma once

#include <QObject>
#include <QWidget>

namespace quorvane {

/// Prevents accidental edits by the mouse wheel: lists, sliders and spin boxes of a window react to it only
/// while they have the focus, and otherwise pass it to their parent. The wheel does not move the focus.
class WheelNeedsFocus : public QObject {
 public:
  /// Applies to the controls that the window has at the time of the call.
  explicit WheelNeedsFocus(QWidget& window);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace quorvane
