#include "Autocovariance.h"

#include <algorithm>
#include <cmath>
#include <mutex>
#include <new>

namespace quorvane {
namespace {

/// Of FFTW's functions only those that run a plan may be called by several threads at once.
std::mutex& planner() {
  static std::mutex mutex;
  return mutex;
}

std::size_t product(int a, int b) { return static_cast<std::size_t>(a) * static_cast<std::size_t>(b); }

}  // namespace

void Autocovariance::Free::operator()(fftw_plan plan) const {
  const std::lock_guard lock(planner());
  fftw_destroy_plan(plan);
}

Autocovariance::Autocovariance(int imax, int jmax, CosineTransform& transform)
    : imax_(imax),
      jmax_(jmax),
      transform_(transform),
      sites_(fftw_alloc_real(product(imax, jmax))),
      waves_(fftw_alloc_complex(product(imax, jmax / 2 + 1))),
      folded_(product(imax / 2 + 1, jmax / 2 + 1)) {
  if (!sites_ || !waves_) throw std::bad_alloc();
  const std::lock_guard lock(planner());
  plan_.reset(fftw_plan_dft_r2c_2d(imax, jmax, sites_.get(), waves_.get(), FFTW_ESTIMATE));
  if (!plan_) throw std::bad_alloc();
}

/// The squares of the waves' amplitudes, added up over the wave vectors (+-m, +-n) that differ.
void Autocovariance::computePower(const Snapshot& snapshot, int type) {
  std::transform(snapshot.sites.begin(), snapshot.sites.end(), sites_.get(),
                 [type](std::uint8_t site) { return site == type ? 1.0 : 0.0; });
  fftw_execute(plan_.get());
  std::fill(folded_.begin(), folded_.end(), 0.0);
  const int height = jmax_ / 2 + 1;
  const fftw_complex* wave = waves_.get();
  for (int m = 0; m < imax_; ++m) {
    double* power = folded_.data() + product(std::min(m, imax_ - m), height);
    for (int n = 0; n < height; ++n, ++wave)
      power[n] += numberOfSigns(n, jmax_) * ((*wave)[0] * (*wave)[0] + (*wave)[1] * (*wave)[1]);
  }
}

const std::vector<double>& Autocovariance::foldedOf(const Snapshot& snapshot, int type, std::int64_t count) {
  computePower(snapshot, type);
  const auto& sums = transform_.of(folded_);
  const auto numSites = static_cast<double>(snapshot.numSites());
  const auto squareOfCount = static_cast<double>(count * count);
  std::size_t place = 0;
  for (int a = 0; a <= imax_ / 2; ++a)
    for (int b = 0; b <= jmax_ / 2; ++b, ++place) {
      // Pairs of sites at (a, b) and at (a, -b). From here on all numbers are integers below 2^53 or halves.
      const double pairs = std::floor(2.0 * sums[place] / numSites + 0.5);
      const int number = numberOfSigns(a, imax_) * numberOfSigns(b, jmax_);
      folded_[place] = number * (pairs / 2.0 * numSites - squareOfCount);
    }
  return folded_;
}

}  // namespace quorvane
