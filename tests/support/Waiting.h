#pragma once

#include <chrono>
#include <ctime>
#include <thread>

namespace quorvane {

/// Waits until a condition holds; false if it does not within the deadline.
template <class Condition>
bool waitUntil(Condition&& holds, std::chrono::seconds deadline = std::chrono::seconds(100)) {
  const auto end = std::chrono::steady_clock::now() + deadline;
  while (!holds()) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(std::chrono::microseconds(100));
  }
  return true;
}

/// Measures the CPU time of all threads of this process, which other load does not increase.
class ProcessorTime {
 public:
  double seconds() const {
    return static_cast<double>(std::clock() - start_) / static_cast<double>(CLOCKS_PER_SEC);
  }

 private:
  std::clock_t start_ = std::clock();
};

}  // namespace quorvane
