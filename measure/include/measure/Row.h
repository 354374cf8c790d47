#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace quorvane {

/// A measured value: a number of something, or a real number.
using Value = std::variant<std::int64_t, double>;

/// The values of one measurement.
class Row {
 public:
  void add(std::integral auto number) { values_.emplace_back(static_cast<std::int64_t>(number)); }
  void add(std::floating_point auto number) { values_.emplace_back(double{number}); }

  const std::vector<Value>& values() const { return values_; }
  void clear() { values_.clear(); }

 private:
  std::vector<Value> values_;
};

/// Appends a value as text, the same in every locale: an integer as it is, a real number with 17 significant
/// digits, which read back to the same bits, or nan, inf or -inf.
void appendText(std::string& text, Value value);

/// part / whole, correctly rounded; nan if whole is 0. Both below 2^53.
double ratio(std::int64_t part, std::int64_t whole);

}  // namespace quorvane
