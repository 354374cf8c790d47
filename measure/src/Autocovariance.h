#pragma once

#include <fftw3.h>

#include <cstdint>
#include <memory>
#include <vector>

#include "CosineTransform.h"
#include "measure/Snapshot.h"

namespace quorvane {

/// N^2 times the autocovariance of the sites that hold a type, for lattices of one size.
///
/// This is an integer for each displacement. It is computed from a Fourier transform whose last bits depend
/// on the processor, and rounded, since the error is far below 1/2.
class Autocovariance {
 public:
  /// transform: one for lattices of this size, which is used in each call.
  Autocovariance(int imax, int jmax, CosineTransform& transform);

  /// N sum over x of s(x) s(x + d) - n^2, where s is 1 on the n sites of the type and else 0, added up over
  /// the displacements d = (+-a, +-b) that differ on the torus: at [a * (jmax / 2 + 1) + b] for a up to imax
  /// / 2 and b up to jmax / 2. count: n. Valid until the next call.
  const std::vector<double>& foldedOf(const Snapshot& snapshot, int type, std::int64_t count);

 private:
  struct Free {
    void operator()(void* memory) const { fftw_free(memory); }
    void operator()(fftw_plan plan) const;
  };
  using Plan = std::unique_ptr<std::remove_pointer_t<fftw_plan>, Free>;

  void computePower(const Snapshot& snapshot, int type);

  int imax_, jmax_;
  CosineTransform& transform_;
  std::unique_ptr<double, Free> sites_;
  std::unique_ptr<fftw_complex, Free> waves_;
  Plan plan_;
  std::vector<double> folded_;  ///< the power of the waves, and then the result
};

}  // namespace quorvane
