#pragma once

#include <algorithm>
#include <cstdint>

namespace quorvane {

/// The number of bytes that have a value. Adds up in bytes, of which a vector holds most.
inline std::int64_t countEqual(const std::uint8_t* bytes, std::size_t size, std::uint8_t value) {
  // The largest multiple of 16 that a byte can count.
  constexpr std::size_t block = 240;
  std::int64_t count = 0;
  while (size > 0) {
    const std::size_t length = std::min(block, size);
    std::uint8_t inBlock = 0;
    for (std::size_t k = 0; k < length; ++k)
      inBlock = static_cast<std::uint8_t>(inBlock + (bytes[k] == value ? 1 : 0));
    count += inBlock;
    bytes += length;
    size -= length;
  }
  return count;
}

}  // namespace quorvane
