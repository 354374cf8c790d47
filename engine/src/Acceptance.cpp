#include "Acceptance.h"

namespace quorvane {

bool BoundedAcceptance::exactly(double dE, double parameter, double u) {
  return ExactAcceptance::accepts(dE, parameter, u);
}

double CachedAcceptance::compute(double dE) {
  const auto bits = std::bit_cast<std::uint64_t>(dE);
  ++misses_;
  Entry& entry = entries_[indexOf(bits)];
  entry = {.dE = bits, .acceptance = quorvane::acceptance(dE)};
  return entry.acceptance;
}

}  // namespace quorvane
