#pragma once

namespace quorvane {

/// A wrong version of the library's header: a plain value, which threads must not share.
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
