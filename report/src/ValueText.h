#pragma once

#include <string>

namespace quorvane {

/// A value with its standard error, which has two digits: "0.61012 ± 0.00031". Without an error, as with a
/// single replica, the value alone.
std::string withError(double value, double error);

}  // namespace quorvane
