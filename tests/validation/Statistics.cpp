#include "Statistics.h"

#include <cmath>
#include <numeric>

namespace quorvane::validation {

double deviation(const Estimate& measured, double exact) { return (measured.value - exact) / measured.error; }

Blocks::Blocks(int numObservables, std::int64_t samplesPerBlock)
    : samplesPerBlock_(samplesPerBlock), open_(static_cast<std::size_t>(numObservables)) {}

void Blocks::next() {
  if (++samplesInOpen_ < samplesPerBlock_) return;
  for (double& value : open_) value /= static_cast<double>(samplesPerBlock_);
  blocks_.push_back(open_);
  open_.assign(open_.size(), 0.0);
  samplesInOpen_ = 0;
}

void Blocks::sample(std::initializer_list<double> values) {
  int observable = 0;
  for (const double value : values) add(observable++, value);
  next();
}

std::vector<double> Blocks::totalMeans() const {
  std::vector<double> means(open_.size());
  for (const auto& block : blocks_)
    for (std::size_t k = 0; k < means.size(); ++k) means[k] += block[k] / static_cast<double>(blocks_.size());
  return means;
}

Estimate Blocks::mean(int observable) const {
  const auto k = static_cast<std::size_t>(observable);
  const double n = numBlocks();
  double mean = 0.0, squares = 0.0;
  for (const auto& block : blocks_) mean += block[k] / n;
  for (const auto& block : blocks_) squares += (block[k] - mean) * (block[k] - mean);
  return {mean, std::sqrt(squares / (n - 1) / n)};
}

Estimate Blocks::functionOfMeans(const std::function<double(Means)>& function) const {
  const double n = numBlocks();
  const std::vector<double> all = totalMeans();
  std::vector<double> values;
  std::vector<double> without(all.size());
  for (const auto& block : blocks_) {
    for (std::size_t k = 0; k < all.size(); ++k) without[k] = (n * all[k] - block[k]) / (n - 1);
    values.push_back(function(without));
  }
  const double mean = std::accumulate(values.begin(), values.end(), 0.0) / n;
  double squares = 0.0;
  for (const double value : values) squares += (value - mean) * (value - mean);
  return {n * function(all) - (n - 1) * mean, std::sqrt((n - 1) / n * squares)};
}

double Blocks::correlationOfNeighbours(int observable) const {
  const auto k = static_cast<std::size_t>(observable);
  const double mean = totalMeans()[k];
  double squares = 0.0, products = 0.0;
  for (std::size_t b = 0; b < blocks_.size(); ++b) {
    squares += (blocks_[b][k] - mean) * (blocks_[b][k] - mean);
    if (b > 0) products += (blocks_[b - 1][k] - mean) * (blocks_[b][k] - mean);
  }
  return products / squares;
}

Estimate share(std::int64_t count, std::int64_t outcomes, double probability) {
  const auto n = static_cast<double>(outcomes);
  return {static_cast<double>(count) / n, std::sqrt(probability * (1 - probability) / n)};
}

void ChiSquared::add(std::span<const std::int64_t> counts, std::span<const double> probabilities) {
  const auto total = static_cast<double>(std::accumulate(counts.begin(), counts.end(), std::int64_t{0}));
  double rareCount = 0.0, rareExpected = 0.0;
  int cells = 0;
  const auto addCell = [&](double count, double expected) {
    sum_ += (count - expected) * (count - expected) / expected;
    ++cells;
  };
  for (std::size_t k = 0; k < counts.size(); ++k) {
    const double expected = total * probabilities[k];
    if (expected >= 10.0) {
      addCell(static_cast<double>(counts[k]), expected);
    } else {
      rareCount += static_cast<double>(counts[k]);
      rareExpected += expected;
    }
  }
  if (rareExpected > 0.0) addCell(rareCount, rareExpected);
  degrees_ += cells - 1;
}

void ChiSquared::addUniform(std::span<const std::int64_t> counts) {
  const std::vector<double> equal(counts.size(), 1.0 / static_cast<double>(counts.size()));
  add(counts, equal);
}

double ChiSquared::normalDeviate() const {
  const double width = 2.0 / (9.0 * degrees_);
  return (std::cbrt(sum_ / degrees_) - (1.0 - width)) / std::sqrt(width);
}

}  // namespace quorvane::validation
