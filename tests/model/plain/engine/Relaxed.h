#pragma once

namespace quorvane {

/// The library's header of this name as it must not be: a plain value, which threads may not share.
template <class T>
class Relaxed {
 public:
  constexpr Relaxed() noexcept : value_(T{}) {}
  constexpr Relaxed(T value) noexcept : value_(value) {}

  operator T() const noexcept { return value_; }
  T load() const noexcept { return value_; }

 private:
  T value_;
};

}  // namespace quorvane
