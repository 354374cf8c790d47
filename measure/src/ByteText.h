#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "measure/MeasureError.h"

namespace quorvane {

/// Appends a length, as eight bytes with the lowest first, and the bytes.
inline void appendBlock(std::string& bytes, std::string_view block) {
  constexpr int numBytes = 8, bitsPerByte = 8;
  for (int k = 0; k < numBytes; ++k)
    bytes.push_back(static_cast<char>(std::uint64_t{block.size()} >> (bitsPerByte * k) & 0xff));
  bytes += block;
}

/// Takes such a block from the beginning. Throws MeasureError if there is no whole one.
inline std::string_view takeBlock(std::string_view& bytes) {
  constexpr std::size_t numBytes = 8, bitsPerByte = 8;
  std::uint64_t length = 0;
  if (bytes.size() < numBytes) throw MeasureError("the stored state of the observables ends early");
  for (std::size_t k = 0; k < numBytes; ++k)
    length |= std::uint64_t{static_cast<unsigned char>(bytes[k])} << (bitsPerByte * k);
  bytes.remove_prefix(numBytes);
  if (length > bytes.size()) throw MeasureError("the stored state of the observables ends early");
  const auto block = bytes.substr(0, static_cast<std::size_t>(length));
  bytes.remove_prefix(block.size());
  return block;
}

}  // namespace quorvane
