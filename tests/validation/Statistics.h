#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

namespace quorvane::validation {

/// A measured value with its standard error.
struct Estimate {
  double value;
  double error;
};

/// The deviation of a measured value from an exact one, in standard errors.
double deviation(const Estimate& measured, double exact);

/// Means of several observables, with errors that include correlations in time: samples are gathered into
/// consecutive blocks, long compared with the correlation time, and the scatter of the block means gives the
/// error (Flyvbjerg and Petersen, J. Chem. Phys. 91, 461, 1989). For independent runs a block may be one run.
class Blocks {
 public:
  using Means = std::span<const double>;

  Blocks(int numObservables, std::int64_t samplesPerBlock);

  /// Adds to an observable in the current sample, which next() ends.
  void add(int observable, double value) { open_[static_cast<std::size_t>(observable)] += value; }
  void next();
  /// One whole sample.
  void sample(std::initializer_list<double> values);

  int numBlocks() const { return static_cast<int>(blocks_.size()); }
  Estimate mean(int observable) const;
  /// A function of the means, with error and bias correction by the jackknife (Efron, Ann. Stat. 7, 1, 1979).
  Estimate functionOfMeans(const std::function<double(Means)>& function) const;
  /// The correlation of consecutive block means of an observable. Within about 1 / sqrt(numBlocks()) of 0 if
  /// the blocks are long enough.
  double correlationOfNeighbours(int observable) const;

 private:
  std::vector<double> totalMeans() const;

  std::int64_t samplesPerBlock_;
  std::int64_t samplesInOpen_ = 0;
  std::vector<double> open_;
  std::vector<std::vector<double>> blocks_;
};

/// A measured share of independent outcomes with the exact probability; the error is exact.
Estimate share(std::int64_t count, std::int64_t outcomes, double probability);

/// Pearson's sum over counts of independent outcomes. Cells with an expectation below ten are merged.
class ChiSquared {
 public:
  void add(std::span<const std::int64_t> counts, std::span<const double> probabilities);
  void addUniform(std::span<const std::int64_t> counts);

  double sum() const { return sum_; }
  int degrees() const { return degrees_; }
  /// The sum as a normal deviate (Wilson and Hilferty, Proc. Natl. Acad. Sci. USA 17, 684, 1931).
  double normalDeviate() const;

 private:
  double sum_ = 0.0;
  int degrees_ = 0;
};

}  // namespace quorvane::validation
