#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

/// A quantity as a reader knows it.
struct Quantity {
  std::string title;  ///< with the pixel types, such as "Contacts of Oil with Water"
  std::string name;   ///< without them, such as "Contacts"
  std::string unit;   ///< may be empty

  /// For an axis.
  std::string label() const { return unit.empty() ? name : name + " (" + unit + ')'; }
};

/// What a column of points.csv or series.csv holds, such as "order_0_1_binder". types: the names of the pixel
/// types. A column that is not known is its own title.
Quantity quantityOf(std::string_view column, const std::vector<std::string>& types);

/// Columns that are the values of one function, such as "c_0_17_mean".
struct ProfileColumn {
  std::string function;  ///< "c_0"
  int argument;          ///< 17
};
std::optional<ProfileColumn> profileColumn(std::string_view column);

/// What a function such as "c_0" is, and its argument.
Quantity profileQuantity(std::string_view function, const std::vector<std::string>& types);
Quantity profileArgument(std::string_view function);

}  // namespace quorvane
