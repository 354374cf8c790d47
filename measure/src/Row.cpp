#include "measure/Row.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace quorvane {
namespace {

struct Digits {
  char text[32];

  std::to_chars_result print(std::int64_t number) {
    return std::to_chars(std::begin(text), std::end(text), number);
  }
  std::to_chars_result print(double number) {
    // Processors differ in the sign of a nan, which would be printed.
    if (std::isnan(number)) number = std::numeric_limits<double>::quiet_NaN();
    return std::to_chars(std::begin(text), std::end(text), number, std::chars_format::general,
                         std::numeric_limits<double>::max_digits10);
  }
};

}  // namespace

void appendText(std::string& text, Value value) {
  Digits digits;
  const auto end = std::visit([&](auto number) { return digits.print(number).ptr; }, value);
  text.append(digits.text, end);
}

double ratio(std::int64_t part, std::int64_t whole) {
  if (whole == 0) return std::numeric_limits<double>::quiet_NaN();
  return static_cast<double>(part) / static_cast<double>(whole);
}

}  // namespace quorvane
