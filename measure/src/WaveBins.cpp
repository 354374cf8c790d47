#include "WaveBins.h"

#include <algorithm>

#include "CosineTransform.h"

namespace quorvane {
namespace {

/// The nearest integer to the length of (m / imax, n / jmax) in units of 1 / (the larger side), a half
/// upwards.
int binOfWave(std::int64_t m, std::int64_t n, std::int64_t imax, std::int64_t jmax) {
  const std::int64_t larger = std::max(imax, jmax), smaller = std::min(imax, jmax);
  // The squares of twice the length and of the bins' limits, both times the square of the smaller side, are
  // integers.
  const std::int64_t alongI = 2 * m * larger * smaller / imax, alongJ = 2 * n * larger * smaller / jmax;
  const std::int64_t square = alongI * alongI + alongJ * alongJ;
  std::int64_t bin = 0;
  while ((2 * bin + 1) * smaller * (2 * bin + 1) * smaller <= square) ++bin;
  return static_cast<int>(bin);
}

}  // namespace

WaveBins::WaveBins(int imax, int jmax) : imax_(imax), jmax_(jmax) {
  for (int m = 0; m <= imax / 2; ++m)
    for (int n = 0; n <= jmax / 2; ++n) {
      const int bin = binOfWave(m, n, imax, jmax);
      const auto size = static_cast<std::size_t>(bin) + 1;
      bins_.push_back(bin);
      if (numbers_.size() < size) numbers_.resize(size);
      numbers_[size - 1] += number(m, n);
    }
}

int WaveBins::number(int m, int n) const { return numberOfSigns(m, imax_) * numberOfSigns(n, jmax_); }

}  // namespace quorvane
