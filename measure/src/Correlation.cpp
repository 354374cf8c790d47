#include <algorithm>

#include "BitColumns.h"
#include "TypeCounts.h"
#include "measure/Registry.h"

namespace quorvane {
namespace {

class Correlation : public Observable {
 public:
  explicit Correlation(const Snapshot& first)
      : numTypes_(first.numTypes), largestDistance_(std::min(first.imax, first.jmax) / 2) {}

  std::vector<std::string> columns() const override {
    std::vector<std::string> names;
    for (int t = 0; t < numTypes_; ++t)
      for (int r = 1; r <= largestDistance_; ++r) names.push_back(columnOf("c", t) + "_" + std::to_string(r));
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
  void compute(const Snapshot& snapshot, int type, std::int64_t count) {
    alongI_.read(snapshot, type, Axis::kI);
    alongJ_.read(snapshot, type, Axis::kJ);
    const std::int64_t numSites = snapshot.numSites();
    values_.clear();
    for (int r = 1; r <= largestDistance_; ++r) {
      const std::int64_t pairs = alongI_.pairsAt(r) + alongJ_.pairsAt(r);
      values_.push_back(ratio(pairs * numSites - 2 * count * count, 2 * numSites * numSites));
    }
  }

  int numTypes_, largestDistance_;
  BitColumns alongI_, alongJ_;
  std::vector<double> values_;  ///< of one type
};

std::unique_ptr<Observable> makeCorrelation(const Snapshot& first, std::span<const int> /*types*/) {
  return std::make_unique<Correlation>(first);
}

}  // namespace

extern const ObservableKind kCorrelation;
constexpr ObservableKind kCorrelation{
    .name = "correlation",
    .arguments = "",
    .columns = "c_t_r for each type t and r = 1, 2, ... to half the smaller side",
    .definition =
        "The pair correlation <s s(r)> - <s>^2 of the type at the distance r, where s is 1 on its "
        "sites and else 0, and the mean of s s(r) is over all sites and both axes. A lattice of "
        "side 1 has no such column.",
    .paper = "A. J. Bray, Adv. Phys. 43, 357 (1994).",
    .cost = "N times the side",
    .make = makeCorrelation,
};

}  // namespace quorvane
