#pragma once

#include <cassert>

#include "engine/Limits.h"

/// Checked indices: each returns its argument, and in builds with assertions ends the program where it is
/// outside the arrays of a model.
namespace quorvane {

inline int typeIndex(int t) {
  assert(t >= 0 && t < kMaxPixelTypes);
  return t;
}
inline int ruleIndex(int r) {
  assert(r >= 0 && r < kMaxRules);
  return r;
}
inline int siteIndex(int coordinate) {
  assert(coordinate >= 0 && coordinate < kMaxSide);
  return coordinate;
}

}  // namespace quorvane
