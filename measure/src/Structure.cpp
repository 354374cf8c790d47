#include <algorithm>

#include "Autocovariance.h"
#include "CosineTransform.h"
#include "TypeCounts.h"
#include "WaveBins.h"
#include "measure/Registry.h"

namespace quorvane {
namespace {

class Structure : public Observable {
 public:
  explicit Structure(const Snapshot& first)
      : numTypes_(first.numTypes),
        side_(std::max(first.imax, first.jmax)),
        bins_(first.imax, first.jmax),
        transform_(first.imax, first.jmax),
        covariance_(first.imax, first.jmax, transform_) {}

  std::vector<std::string> columns() const override {
    std::vector<std::string> names;
    for (int t = 0; t < numTypes_; ++t) {
      for (int k = 1; k <= bins_.last(); ++k) names.push_back(columnOf("s", t) + "_" + std::to_string(k));
      names.push_back(columnOf("length", t));
    }
    return names;
  }

  void measure(const Snapshot& snapshot, Row& row) override {
    const auto counts = countsOf(snapshot);
    const bool sameForAll = areComplementary(counts, snapshot);
    for (int t = 0; t < numTypes_; ++t) {
      if (t == 0 || !sameForAll) compute(snapshot, t, counts[static_cast<std::size_t>(t)]);
      for (const double value : values_) row.add(value);
    }
  }

 private:
  void compute(const Snapshot& snapshot, int type, std::int64_t count);

  int numTypes_, side_;
  WaveBins bins_;
  CosineTransform transform_;
  Autocovariance covariance_;
  std::vector<double> values_;  ///< of one type: the bins from 1 on, and the length
};

void Structure::compute(const Snapshot& snapshot, int type, std::int64_t count) {
  const auto& waves = transform_.of(covariance_.foldedOf(snapshot, type, count));
  values_.assign(static_cast<std::size_t>(bins_.last()) + 1, 0.0);
  const double* wave = waves.data();
  for (int m = 0; m <= snapshot.imax / 2; ++m)
    for (int n = 0; n <= snapshot.jmax / 2; ++n)
      values_[static_cast<std::size_t>(bins_.binOf(m, n))] += bins_.number(m, n) * *wave++;
  const auto numSites = static_cast<double>(snapshot.numSites());
  double sum = 0.0, moment = 0.0;
  for (int k = 1; k <= bins_.last(); ++k) {
    double& value = values_[static_cast<std::size_t>(k)];
    // A sum of squares; rounding may leave a little less than none.
    value = std::max(0.0, value / (static_cast<double>(bins_.numberIn(k)) * numSites * numSites));
    sum += value;
    moment += k * value;
  }
  values_.erase(values_.begin());
  const bool isUniform = count == 0 || count == snapshot.numSites();
  values_.push_back(isUniform ? ratio(0, 0) : side_ * sum / moment);
}

std::unique_ptr<Observable> makeStructure(const Snapshot& first, std::span<const int> /*types*/) {
  return std::make_unique<Structure>(first);
}

}  // namespace

extern const ObservableKind kStructure;
constexpr ObservableKind kStructure{
    .name = "structure",
    .arguments = "",
    .columns = "s_t_k for k = 1, 2, ... and length_t, for each type t",
    .definition =
        "The structure factor |sum over all sites of (s - <s>) exp(-i q x)|^2 / N of the type, where "
        "s is 1 on its sites and else 0, averaged over the wave vectors q with k - 1/2 <= |q| L / (2 "
        "pi) < k + 1/2, where L is the larger side; and the length L (sum of s_t_k) / (sum of k "
        "s_t_k), which is 2 pi / <q>, in sites. The length of a type on no site or on all is nan.",
    .paper =
        "A. J. Bray, Adv. Phys. 43, 357 (1994); M. Frigo and S. G. Johnson, Proc. IEEE 93, 216 (2005), "
        "for the Fourier transform.",
    .cost = "N log N, and N times the side",
    .make = makeStructure,
};

}  // namespace quorvane
