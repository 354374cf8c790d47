#pragma once

#include <cstddef>

#include "Action.h"

namespace quorvane {

/// The action of every entry of every row at the time of reading.
class ActionTable {
 public:
  /// Whether anything differs from what was read before.
  bool read(int numTypes, const RuleArrays& rules);

  /// The length of a type's row.
  std::uint32_t length(Type type) const { return length_[type]; }
  /// The entries of a type's row; one that is not usable is an action of the kind kNone.
  const Action* row(Type type) const { return rows_[type]; }

  /// The number of an entry: kPlaces times its type, plus its position.
  std::size_t numberOf(const Action& action) const { return static_cast<std::size_t>(&action - rows_[0]); }
  /// A power of two, so that indexing a row takes a shift.
  static constexpr int kPlaces = 64;

 private:
  static_assert(kPlaces >= kMaxRules);

  std::uint32_t length_[kMaxPixelTypes] = {};
  Action rows_[kMaxPixelTypes][kPlaces];
};

}  // namespace quorvane
