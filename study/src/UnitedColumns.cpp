#include "UnitedColumns.h"

#include <algorithm>

namespace quorvane {

std::vector<std::string> unitedColumns(const std::vector<std::vector<std::string>>& lists) {
  std::vector<std::string> united;
  for (const auto& list : lists) {
    auto behind = united.begin();
    for (const std::string& column : list) {
      const auto place = std::find(united.begin(), united.end(), column);
      behind = (place == united.end() ? united.insert(behind, column) : place) + 1;
    }
  }
  return united;
}

std::vector<std::size_t> placesIn(const std::vector<std::string>& list,
                                  const std::vector<std::string>& united) {
  std::vector<std::size_t> places;
  for (const std::string& column : united) {
    const auto place = std::find(list.begin(), list.end(), column);
    places.push_back(place == list.end() ? noPlace : static_cast<std::size_t>(place - list.begin()));
  }
  return places;
}

}  // namespace quorvane
