#include "IsingStates.h"

#include <bit>
#include <cmath>

namespace quorvane::validation {
namespace {

using Row = unsigned;  // A spin in each bit.
using Numbers = std::vector<std::int64_t>;

Row rotatedRow(Row row, int L) { return ((row << 1) | (row >> (L - 1))) & ((1u << L) - 1); }

/// In a row, and between it and the next.
int unlikePairs(Row row, Row next, int L) {
  return std::popcount(row ^ rotatedRow(row, L)) + std::popcount(row ^ next) +
         std::popcount(row ^ rotatedRow(next, L)) + std::popcount(rotatedRow(row, L) ^ next);
}

void addShifted(Numbers& sum, const Numbers& numbers, int by) {
  const auto shift = static_cast<std::size_t>(by);
  for (std::size_t n = shift; n < sum.size(); ++n) sum[n] += numbers[n - shift];
}

/// States of some rows behind a first one, by their last row.
using Strip = std::vector<Numbers>;

Strip withOneMoreRow(const Strip& strip, int L) {
  Strip longer(strip.size(), Numbers(strip[0].size()));
  for (Row last = 0; last < strip.size(); ++last)
    for (Row next = 0; next < strip.size(); ++next)
      addShifted(longer[next], strip[last], unlikePairs(last, next, L));
  return longer;
}

}  // namespace

std::vector<std::int64_t> isingStates(int L) {
  const auto pairs = static_cast<std::size_t>(4 * L * L);
  const Row rows = 1u << L;
  Numbers states(pairs + 1);
  for (Row first = 0; first < rows; ++first) {
    Strip strip(rows, Numbers(pairs + 1));
    strip[first][0] = 1;
    for (int row = 1; row < L; ++row) strip = withOneMoreRow(strip, L);
    for (Row last = 0; last < rows; ++last) addShifted(states, strip[last], unlikePairs(last, first, L));
  }
  return states;
}

EnergyMoments energyMoments(const std::vector<std::int64_t>& states, double K) {
  double Z = 0.0, first = 0.0, second = 0.0;
  for (std::size_t n = 0; n < states.size(); ++n) {
    const double energy = 2 * K * static_cast<double>(n);
    const double weight = static_cast<double>(states[n]) * std::exp(-energy);
    Z += weight;
    first += weight * energy;
    second += weight * energy * energy;
  }
  const double mean = first / Z;
  return {mean, second / Z - mean * mean};
}

}  // namespace quorvane::validation
