#include "app/FixedDecimals.h"

#include <charconv>
#include <iterator>
#include <limits>

namespace quorvane {

QString fixedDecimals(double value, int decimals) {
  // QString::number rounds the shortest decimal form, which turns 0.0625 into 0.063.
  constexpr int signPointAndDecimals = 20;
  char text[std::numeric_limits<double>::max_exponent10 + signPointAndDecimals];
  const auto [end, error] =
      std::to_chars(std::begin(text), std::end(text), value, std::chars_format::fixed, decimals);
  return error == std::errc{} ? QString::fromLatin1(text, end - text) : QString();
}

}  // namespace quorvane
