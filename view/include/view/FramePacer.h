#pragma once

#include <algorithm>
#include <chrono>

namespace quorvane {

/// Limits drawing to half of the main thread's time: after a frame the next one of a run waits for as long as
/// the frame took. Main thread only. Clock: the time, as std::chrono has it.
template <class Clock>
class BasicFramePacer {
 public:
  void frameBegins() {
    begin_ = Clock::now();
    open_ = true;
  }
  /// To be called when the frame is on the screen.
  void frameEnds() {
    if (!open_) return;
    open_ = false;
    end_ = Clock::now();
    cost_ = end_ - begin_;
  }

  /// The remaining pause, 0 to 250 ms.
  std::chrono::milliseconds pauseBeforeNextFrame() const {
    using std::chrono::milliseconds;
    constexpr milliseconds none{0}, longest{250};
    const auto left = std::chrono::duration_cast<milliseconds>(end_ + cost_ - Clock::now());
    return std::clamp(left, none, longest);
  }

 private:
  typename Clock::time_point begin_{}, end_{};
  typename Clock::duration cost_{};
  bool open_ = false;
};

using FramePacer = BasicFramePacer<std::chrono::steady_clock>;

}  // namespace quorvane
