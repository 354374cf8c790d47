#pragma once

#include <vector>

namespace quorvane {

/// Places for the labels of a logarithmic axis from first to last, both positive: powers of ten, over up to
/// three decades also 2 and 5 times these, and every digit over less than one.
std::vector<double> logarithmicTicks(double first, double last);

}  // namespace quorvane
