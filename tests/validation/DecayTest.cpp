#include <cmath>

#include "Figures.h"
#include "System.h"

namespace quorvane::validation {
namespace {

class Decay : public ValidationTest {
 protected:
  /// The share of a type after some numbers of sweeps from a lattice full of type 0, in independent runs.
  static std::vector<Estimate> shareOfType(int type, const System& system, const std::vector<int>& times,
                                           int runs) {
    constexpr int numBlocks = 100;
    const auto model = modelOf(system);
    Blocks blocks(static_cast<int>(times.size()), runs / numBlocks);
    for (int run = 0; run < runs; ++run) {
      fill(*model, 0);
      int sweepsDone = 0, k = 0;
      for (const int time : times) {
        for (; sweepsDone < time; ++sweepsDone) model->sweep();
        blocks.add(k++, sitesOfType(*model, type) / static_cast<double>(system.sites()));
      }
      blocks.next();
    }
    std::vector<Estimate> shares;
    for (int k = 0; k < static_cast<int>(times.size()); ++k) shares.push_back(blocks.mean(k));
    return shares;
  }

  /// The share left after some sweeps if each attempt at a site reduces it by the rate.
  static double left(const System& system, double rate, int sweeps) {
    return std::pow(1 - rate / system.sites(), sweeps * system.attemptsPerSweep());
  }

  static std::string after(int sweeps) {
    return "after " + std::to_string(sweeps) + (sweeps == 1 ? " sweep" : " sweeps");
  }
};

TEST_F(Decay, OnASmallLatticeShowsTheExtraAttempt) {
  constexpr double p = 0.3;
  const System system{4, 4, 2, {{kIrreversibleFlip, 0, 1, p}}};
  const std::vector<int> times = {1, 2, 4, 8};
  const auto shares = shareOfType(0, system, times, 400'000);
  for (std::size_t k = 0; k < times.size(); ++k)
    expectAgreement("4 × 4, p = 0.3, " + after(times[k]), shares[k], left(system, p, times[k]));
  expectRejection("4 × 4, p = 0.3, after 4 sweeps: without the extra attempt", shares[2],
                  std::pow(1 - p / 16, 4 * 16));
  expectRejection("4 × 4, p = 0.3, after 4 sweeps: in continuous time, exp(−4p)", shares[2],
                  std::exp(-4 * p));
}

TEST_F(Decay, OnALargeLatticeIsExponential) {
  constexpr double p = 0.1;
  const System system{200, 200, 2, {{kIrreversibleFlip, 0, 1, p}}};
  const std::vector<int> times = {1, 5, 10, 20, 40};
  const auto shares = shareOfType(0, system, times, 100);
  for (std::size_t k = 0; k < times.size(); ++k)
    expectAgreement("200 × 200, p = 0.1, exp(−pt), " + after(times[k]), shares[k], std::exp(-p * times[k]));
  expectRejection("200 × 200, after 10 sweeps: p = 0.101", shares[2], std::exp(-0.101 * 10));
}

TEST_F(Decay, OfTwoRulesIsSharedByTheirParameters) {
  const System system{4, 4, 3, {{kIrreversibleFlip, 0, 1, 0.6}, {kIrreversibleFlip, 0, 2, 0.2}}};
  const auto shares = shareOfType(1, system, {2}, 400'000);
  // A site uses each of its two rules half as often.
  expectAgreement("4 × 4, p = 0.6 and 0.2, product of the first, after 2 sweeps", shares[0],
                  0.75 * (1 - left(system, 0.4, 2)));
  expectRejection("4 × 4, p = 0.6 and 0.2, if each rule were tried in every attempt", shares[0],
                  0.75 * (1 - left(system, 0.8, 2)));
}

TEST_F(Decay, ToAnyTypeIsSlowerSinceTheCurrentTypeMayBeDrawn) {
  const System system{4, 4, 3, {{kIrreversibleFlip, 0, kAnyPixelType, 0.3}}};
  const auto shares = shareOfType(0, system, {4}, 400'000);
  expectAgreement("4 × 4, to any of three types, p = 0.3, after 4 sweeps", shares[0],
                  left(system, 0.3 * 2 / 3, 4));
  expectRejection("4 × 4, to any of three types, if the current type were never drawn", shares[0],
                  left(system, 0.3, 4));
}

TEST_F(Decay, InAFieldRelaxesToTheBoltzmannShare) {
  constexpr double p = 0.4, field = 1.0;
  System system{4, 4, 2, {{kReversibleFlip, 0, 1, p}}};
  system.field[1] = field;
  const double up = p * std::exp(-field), down = p;
  const std::vector<int> times = {1, 3, 30};
  const auto shares = shareOfType(1, system, times, 200'000);
  for (std::size_t k = 0; k < times.size(); ++k)
    expectAgreement("4 × 4, flips in a field of 1 kT, share of type 1 " + after(times[k]), shares[k],
                    up / (up + down) * (1 - left(system, up + down, times[k])));
  expectRejection("4 × 4, flips in a field of 1.01 kT", shares[2], 1 / (1 + std::exp(1.01 * field)));
}

}  // namespace
}  // namespace quorvane::validation
