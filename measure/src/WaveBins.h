#pragma once

#include <cstdint>
#include <vector>

namespace quorvane {

/// The wave vectors of a lattice, 2 pi (m / imax, n / jmax), in bins by their length: bin b holds those from
/// b - 1/2 to below b + 1/2 in units of 2 pi / (the larger side).
class WaveBins {
 public:
  WaveBins(int imax, int jmax);

  /// The last bin; 0 if there is no wave vector but 0. No bin from 1 to it is empty.
  int last() const { return static_cast<int>(numbers_.size()) - 1; }
  /// The number of wave vectors (+-m, +-n) that differ, for m up to imax / 2 and n up to jmax / 2.
  int number(int m, int n) const;
  int binOf(int m, int n) const { return bins_[place(m, n)]; }
  /// All wave vectors in a bin.
  std::int64_t numberIn(int bin) const { return numbers_[static_cast<std::size_t>(bin)]; }

 private:
  std::size_t place(int m, int n) const {
    const std::ptrdiff_t height = jmax_ / 2 + 1;
    return static_cast<std::size_t>(m * height + n);
  }

  int imax_, jmax_;
  std::vector<int> bins_;
  std::vector<std::int64_t> numbers_;
};

}  // namespace quorvane
