#include "ValueText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

#include "study/Study.h"

namespace quorvane {
namespace {

std::string fixed(double value, int digits) {
  std::array<char, 400> text{};
  std::snprintf(text.data(), text.size(), "%.*f", digits, value);
  return text.data();
}

}  // namespace

std::string withError(double value, double error) {
  if (!std::isfinite(error)) return shortest(value);
  if (error <= 0.0) return shortest(value) + " ± 0";
  constexpr int mostDigits = 20;
  const int digits = std::clamp(1 - static_cast<int>(std::floor(std::log10(error))), 0, mostDigits);
  return fixed(value, digits) + " ± " + fixed(error, digits);
}

}  // namespace quorvane
