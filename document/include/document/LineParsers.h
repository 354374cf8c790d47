#pragma once

#include <cstdint>
#include <string_view>

/// The value of a line of a document, independent of the locale. Leading white space is skipped, the number
/// ends at the first character that cannot belong to it, and the rest is ignored. Never an error: a line that
/// does not begin with a number reads as 0.
namespace quorvane {

/// The low 32 bits of the whole number at the start of the line: an optional sign and decimal digits. A
/// number beyond 64 bits is clamped to 64 bits first.
std::int32_t fileReadINTFromLine(std::string_view line);

/// The real number at the start of the line: an optional sign, decimal digits with an optional full stop, and
/// an optional exponent. Infinities, NaNs and hexadecimal digits are not numbers. Gives an infinity for a
/// number beyond the range of a double and a zero for one too close to zero.
double fileReadDBLFromLine(std::string_view line);

}  // namespace quorvane
