#include "Chance.h"

namespace quorvane {

bool QuickChance::exactly(double dE, double parameter, double u) {
  return ExactChance::accepts(dE, parameter, u);
}

double RememberedChance::meet(double dE) {
  const auto bits = std::bit_cast<std::uint64_t>(dE);
  ++misses_;
  met_[place(bits)] = {bits, quorvane::acceptance(dE)};
  return met_[place(bits)].acceptance;
}

}  // namespace quorvane
