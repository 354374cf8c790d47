#pragma once

#include <vector>

namespace quorvane {

/// The cosines of 0, 1, ... n - 1 n-th parts of a full turn, within 2.5e-16.
///
/// Computed with nothing but sums and products, so that they are the same on every machine; those of the C
/// library depend on its version and on the processor.
std::vector<double> cosinesOfATurn(int n);

}  // namespace quorvane
