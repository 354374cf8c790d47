#include <cmath>
#include <numbers>

#include "Figures.h"
#include "System.h"

namespace quorvane::validation {
namespace {

constexpr int kImax = 16, kJmax = 8;

/// A wave with a whole number of periods on the lattice.
struct Mode {
  int i, j;
  int sweeps;  ///< how long it is followed

  double kx() const { return 2 * std::numbers::pi * i / kImax; }
  double ky() const { return 2 * std::numbers::pi * j / kJmax; }
  std::string name() const {
    return "mode (" + std::to_string(i) + ", " + std::to_string(j) + ") after " + std::to_string(sweeps) +
           (sweeps == 1 ? " sweep" : " sweeps");
  }
  /// The wave at a site, with its nodes between sites.
  double at(int x, int y) const { return std::cos(kx() * (x + 0.5) + ky() * (y + 0.5)); }
  /// The decay of the wave by exchange over bonds in all eight directions.
  double eigenvalue() const {
    return 8 - 2 * std::cos(kx()) - 2 * std::cos(ky()) - 4 * std::cos(kx()) * std::cos(ky());
  }
  double eigenvalueWithoutCorners() const { return 4 - 2 * std::cos(kx()) - 2 * std::cos(ky()); }
};

void PrintTo(const Mode& mode, std::ostream* out) { *out << mode.i << "and" << mode.j; }

class FreeExchange : public ValidationTest, public testing::WithParamInterface<Mode> {
 protected:
  FreeExchange() {
    // Two equal species: every pair has the same energy, so no swap changes it.
    System system{kImax, kJmax, 2, {{kSwap, kAnyPixelType, kAnyPixelType, kParameter}}};
    for (const int a : {0, 1})
      for (const int b : {0, 1}) system.J[a][b] = 0.75;
    model_ = modelOf(system);
  }

  /// The ratio of the amplitude after the sweeps to that at the start, in independent runs.
  Estimate ratioOfAmplitudes(int runs) {
    constexpr int numBlocks = 100;
    Blocks blocks(1, runs / numBlocks);
    for (int run = 0; run < runs; ++run) {
      start();
      const double before = amplitude();
      for (int sweep = 0; sweep < GetParam().sweeps; ++sweep) model_->sweep();
      blocks.sample({amplitude() / before});
    }
    return blocks.mean(0);
  }

  static constexpr double kParameter = 0.8;

 private:
  void start() {
    for (int i = 0; i < kImax; ++i)
      for (int j = 0; j < kJmax; ++j) model_->setSiteValue(i, j, GetParam().at(i, j) > 0 ? 1 : 0);
  }

  double amplitude() const {
    double sum = 0.0;
    for (int i = 0; i < kImax; ++i)
      for (int j = 0; j < kJmax; ++j) sum += model_->getSiteValue(i, j) * GetParam().at(i, j);
    return sum;
  }

  std::unique_ptr<LatticeModel> model_;
};

TEST_P(FreeExchange, LetsAModeDecayAtItsRate) {
  const Mode mode = GetParam();
  const Estimate ratio = ratioOfAmplitudes(80'000);
  constexpr double sites = kImax * kJmax;
  // The two sites of a bond are exchanged when either is drawn with the direction to the other.
  constexpr double perAttempt = 2 * kParameter / (8 * sites);
  const auto after = [&](double eigenvalue, double attempts) {
    return std::pow(1 - perAttempt * eigenvalue, attempts * mode.sweeps);
  };
  const std::string name = mode.name();
  expectAgreement(name, ratio, after(mode.eigenvalue(), sites + 1));
  expectRejection(name + ": without the extra attempt", ratio, after(mode.eigenvalue(), sites));
  expectRejection(name + ": without exchange across corners", ratio,
                  after(mode.eigenvalueWithoutCorners(), sites + 1));
}

INSTANTIATE_TEST_SUITE_P(Modes, FreeExchange,
                         testing::Values(Mode{1, 0, 10}, Mode{0, 1, 3}, Mode{1, 1, 2}, Mode{2, 0, 3},
                                         Mode{3, 1, 1}),
                         [](const auto& one) {
                           return std::to_string(one.param.i) + "and" + std::to_string(one.param.j);
                         });

}  // namespace
}  // namespace quorvane::validation
