#pragma once

#include <QElapsedTimer>
#include <algorithm>
#include <chrono>

namespace quorvane {

/// Keeps drawing from taking up the main thread: after a frame as much time goes by as the frame took before
/// the next one begins, so a click never waits for more than one frame. Main thread only.
class FramePacer {
 public:
  FramePacer() { clock_.start(); }

  void frameBegins() {
    begin_ = clock_.elapsed();
    open_ = true;
  }
  /// To be called when the frame is on the screen.
  void frameEnds() {
    if (!open_) return;
    open_ = false;
    end_ = clock_.elapsed();
    cost_ = end_ - begin_;
  }

  /// The remaining pause, 0 to 250 ms.
  std::chrono::milliseconds pauseBeforeNextFrame() const {
    constexpr qint64 longest = 250;
    return std::chrono::milliseconds(std::clamp<qint64>(end_ + cost_ - clock_.elapsed(), 0, longest));
  }

 private:
  QElapsedTimer clock_;
  qint64 begin_ = 0, end_ = 0, cost_ = 0;
  bool open_ = false;
};

}  // namespace quorvane
