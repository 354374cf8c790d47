#include "document/LineParsers.h"

#include <charconv>
#include <limits>
#include <system_error>

#include "document/RealFromChars.h"

namespace quorvane {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// Prepares a number for std::from_chars, which accepts neither white space nor a plus sign.
struct Magnitude {
  bool negative = false;
  std::string_view digits;
};

Magnitude splitSign(std::string_view line) {
  const auto start = line.find_first_not_of(" \t\n\v\f\r");
  if (start == std::string_view::npos) return {};
  line.remove_prefix(start);
  const bool negative = line.front() == '-';
  if (negative || line.front() == '+') line.remove_prefix(1);
  return {negative, line};
}

bool beginsWithDigits(std::string_view text) {
  if (text.starts_with('.')) text.remove_prefix(1);
  return !text.empty() && isDigit(text.front());
}

/// The exponent after the digits, clamped to a range that cannot overflow when lengths of the text are added.
std::int64_t writtenExponent(std::string_view text) {
  constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max() / 4;
  if (text.empty() || (text.front() != 'e' && text.front() != 'E')) return 0;
  const Magnitude exponent = splitSign(text.substr(1));
  std::int64_t value = 0;
  for (const char c : exponent.digits) {
    if (!isDigit(c)) break;
    value = value < largest / 10 ? value * 10 + (c - '0') : largest;
  }
  return exponent.negative ? -value : value;
}

/// Distinguishes overflow from underflow of a number that does not fit into a double.
bool isLarge(std::string_view text) {
  std::int64_t wholeDigits = 0, leadingZeros = 0;
  bool afterPoint = false, significant = false;
  std::size_t k = 0;
  for (; k < text.size() && (isDigit(text[k]) || (text[k] == '.' && !afterPoint)); ++k) {
    if (text[k] == '.') {
      afterPoint = true;
      continue;
    }
    significant = significant || text[k] != '0';
    if (!afterPoint) ++wholeDigits;
    if (!significant) ++leadingZeros;
  }
  return wholeDigits - leadingZeros + writtenExponent(text.substr(k)) > 0;
}

}  // namespace

std::int32_t fileReadINTFromLine(std::string_view line) {
  using Limits = std::numeric_limits<std::int64_t>;
  const Magnitude number = splitSign(line);
  std::uint64_t magnitude = 0;
  const auto [end, error] =
      std::from_chars(number.digits.data(), number.digits.data() + number.digits.size(), magnitude);
  const std::uint64_t largest = static_cast<std::uint64_t>(Limits::max()) + (number.negative ? 1 : 0);
  if (error == std::errc::invalid_argument) return 0;
  if (error == std::errc::result_out_of_range || magnitude > largest) magnitude = largest;
  const std::uint64_t value = number.negative ? std::uint64_t{0} - magnitude : magnitude;
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
}

double fileReadDBLFromLine(std::string_view line) {
  const Magnitude number = splitSign(line);
  // std::from_chars would accept "inf" and "nan".
  if (!beginsWithDigits(number.digits)) return 0.0;
  double magnitude = 0.0;
  const auto [end, error] =
      realFromChars(number.digits.data(), number.digits.data() + number.digits.size(), magnitude);
  if (error == std::errc::result_out_of_range)
    magnitude = isLarge({number.digits.data(), end}) ? std::numeric_limits<double>::infinity() : 0.0;
  return number.negative ? -magnitude : magnitude;
}

}  // namespace quorvane
