#pragma once

#include <QString>

namespace quorvane {

/// A number with a fixed count of digits after the full stop, as `printf` gives it in the C locale: the exact
/// value is rounded, a tie to the even digit, and a negative zero keeps its sign. decimals: 0 to 17.
QString fixedDecimals(double value, int decimals);

}  // namespace quorvane
