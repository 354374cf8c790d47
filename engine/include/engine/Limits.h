#pragma once

namespace quorvane {

/// Pixel types a system can have; their indices are 0 to 9.
inline constexpr int kMaxPixelTypes = 10;
/// Rules a system can have, and entries a pixel type's row of accessible rules can have.
inline constexpr int kMaxRules = 50;
/// Sites along either side of the lattice.
inline constexpr int kMaxSide = 256;
/// Neighbours of a site: four across its edges, four across its corners.
inline constexpr int kNumDirections = 8;

}  // namespace quorvane
