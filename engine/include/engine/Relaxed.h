#pragma once

#include <atomic>

namespace quorvane {

/// A value that several threads read and write without a lock.
///
/// Every read is a relaxed atomic load and every write a relaxed atomic store, with the syntax of a plain
/// value, so a plain access cannot be written by accident. Neither orders anything else, and there is no
/// read-modify-write: an update that two threads make at once may lose one of the two.
template <class T>
class Relaxed {
 public:
  constexpr Relaxed() noexcept : value_(T{}) {}
  constexpr Relaxed(T value) noexcept : value_(value) {}
  Relaxed(const Relaxed& other) noexcept : value_(other.load()) {}

  Relaxed& operator=(T value) noexcept {
    value_.store(value, std::memory_order_relaxed);
    return *this;
  }
  Relaxed& operator=(const Relaxed& other) noexcept {
    if (this != &other) *this = other.load();
    return *this;
  }

  operator T() const noexcept { return load(); }
  T load() const noexcept { return value_.load(std::memory_order_relaxed); }

 private:
  static_assert(std::atomic<T>::is_always_lock_free);
  std::atomic<T> value_;
};

}  // namespace quorvane
