#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace quorvane {

/// The columns of a table whose rows have lists of columns of different lengths: those of the first list, and
/// a column that only a later list has behind the one before it there.
std::vector<std::string> unitedColumns(const std::vector<std::vector<std::string>>& lists);

/// For each united column its place in a list, or noPlace.
inline constexpr std::size_t noPlace = static_cast<std::size_t>(-1);
std::vector<std::size_t> placesIn(const std::vector<std::string>& list,
                                  const std::vector<std::string>& united);

}  // namespace quorvane
