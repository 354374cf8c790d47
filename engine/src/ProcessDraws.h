#pragma once

#include <cstdint>

#include "engine/f_ran0.h"

namespace quorvane {

/// The draws of the process one by one, with the operations of RandomSource::Stream.
struct ProcessDraws {
  static double real() { return fRandReal(); }
  static std::uint32_t whole() { return processRandomSource.next(); }
  static std::uint32_t below(std::uint32_t n) {
    return static_cast<std::uint32_t>(fRandInt(static_cast<int>(n)) - 1);
  }
  static void makeRoom() {}
};

}  // namespace quorvane
