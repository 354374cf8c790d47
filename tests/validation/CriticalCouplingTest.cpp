#include <array>
#include <cmath>

#include "CumulantScaling.h"
#include "Figures.h"
#include "System.h"
#include "TransferMatrix.h"

namespace quorvane::validation {
namespace {

/// Luijten, Blöte and Bakker, Phys. Rev. E 54, 4626, 1996.
constexpr double kPublished = 0.1901926807;

/// The couplings to which a run at the middle one is reweighted (Ferrenberg and Swendsen, Phys. Rev. Lett.
/// 61, 2635, 1988).
constexpr double kSpacing = 0.001;
constexpr double kCouplings[] = {kPublished - kSpacing, kPublished, kPublished + kSpacing};
constexpr int kNumCouplings = 3;

/// The means of the weight, of m^2 and of m^4 for each coupling, followed by the mean number of bonds.
constexpr int kWeight = 0, kM2 = 1, kM4 = 2, kPerCoupling = 3;
constexpr int kBonds = kPerCoupling * kNumCouplings, kNumMeans = kBonds + 1;

int meanAt(int coupling, int which) { return kPerCoupling * coupling + which; }

double cumulant(Blocks::Means means, int coupling) {
  const auto mean = [&](int which) { return means[static_cast<std::size_t>(meanAt(coupling, which))]; };
  return 1 - mean(kM4) * mean(kWeight) / (3 * mean(kM2) * mean(kM2));
}

/// Flips between two types with J = 4 K between unlike ones, which counts half: 2 K.
System isingLattice(int L, double K) {
  System system{L, L, 2, {{kReversibleFlip, 0, 1}}};
  setPairEnergy(system, 0, 1, 4 * K);
  return system;
}

struct Spins {
  double magnetisation;  ///< per site
  double bonds;          ///< the sum of s s' over all bonds
};

Spins look(const LatticeModel& model, int L) {
  static std::int8_t spin[kMaxSide][kMaxSide];
  int sum = 0, bonds = 0;
  for (int i = 0; i < L; ++i)
    for (int j = 0; j < L; ++j) {
      spin[i][j] = model.varSiteValues[i][j] == 1 ? 1 : -1;
      sum += spin[i][j];
    }
  for (int i = 0; i < L; ++i) {
    const auto& here = spin[i];
    const auto& next = spin[i + 1 < L ? i + 1 : 0];
    for (int j = 0; j < L; ++j) {
      const int above = j + 1 < L ? j + 1 : 0;
      bonds += here[j] * (next[j] + here[above] + next[above]) + here[above] * next[j];
    }
  }
  return {sum / static_cast<double>(L * L), static_cast<double>(bonds)};
}

struct Run {
  int L;
  int sweepsPerSample;
  int samplesPerBlock;
  bool swapsToo = false;

  std::string name() const { return std::to_string(L) + (swapsToo ? "WithSwaps" : ""); }
};

void PrintTo(const Run& run, std::ostream* out) { *out << run.name(); }

Blocks measure(const Run& run) {
  constexpr int numBlocks = 100;
  System system = isingLattice(run.L, kPublished);
  if (run.swapsToo) system.rules.push_back({kSwap, kAnyPixelType, kAnyPixelType});
  const auto model = modelOf(system);
  const double middle = run.L * run.L * 2.0;  // Near the mean of the bonds, to keep weights near 1.
  Blocks blocks(kNumMeans, run.samplesPerBlock);
  const int samples = numBlocks * run.samplesPerBlock, warmUp = samples / 20;
  for (int sample = -warmUp; sample < samples; ++sample) {
    for (int sweep = 0; sweep < run.sweepsPerSample; ++sweep) model->sweep();
    if (sample < 0) continue;
    const Spins spins = look(*model, run.L);
    const double m2 = spins.magnetisation * spins.magnetisation;
    for (int c = 0; c < kNumCouplings; ++c) {
      const double weight = std::exp((kCouplings[c] - kPublished) * (spins.bonds - middle));
      blocks.add(meanAt(c, kWeight), weight);
      blocks.add(meanAt(c, kM2), weight * m2);
      blocks.add(meanAt(c, kM4), weight * m2 * m2);
    }
    blocks.add(kBonds, spins.bonds / (run.L * run.L));
    blocks.next();
  }
  return blocks;
}

class IsingLattice : public ValidationTest, public testing::WithParamInterface<Run> {};

TEST_P(IsingLattice, HasTheExactMomentsAtTheCriticalCoupling) {
  const int L = GetParam().L;
  const std::string size =
      std::to_string(L) + " × " + std::to_string(L) + (GetParam().swapsToo ? ", flips and swaps" : "");
  const Blocks blocks = measure(GetParam());
  expectLongBlocks(blocks, meanAt(1, kM2));
  const IsingMoments exact = exactIsingMoments(L, kPublished);
  const Estimate bonds = blocks.mean(kBonds);
  expectAgreement(size + ": ⟨Σ ss′⟩ per site", bonds, exactIsingBonds(L, kPublished));
  expectAgreement(size + ": ⟨m²⟩", blocks.mean(meanAt(1, kM2)), exact.m2);
  expectAgreement(size + ": cumulant",
                  blocks.functionOfMeans([](Blocks::Means means) { return cumulant(means, 1); }),
                  exact.cumulant());
  expectRejection(size + ": ⟨Σ ss′⟩ per site for K larger by 0.3 %", bonds,
                  exactIsingBonds(L, 1.003 * kPublished));
}

INSTANTIATE_TEST_SUITE_P(Sizes, IsingLattice,
                         testing::Values(Run{4, 1, 30'000}, Run{6, 1, 20'000}, Run{8, 2, 10'000},
                                         Run{8, 2, 10'000, true}),
                         [](const auto& one) { return one.param.name(); });

class CriticalCoupling : public ValidationTest {
 protected:
  /// The crossing of the cumulants of two runs, each known at the three couplings.
  static double crossing(const std::array<double, kNumCouplings>& small,
                         const std::array<double, kNumCouplings>& large) {
    std::array<double, kNumCouplings> difference{};
    for (std::size_t c = 0; c < kNumCouplings; ++c) difference[c] = large[c] - small[c];
    const double slope = (difference[2] - difference[0]) / (2 * kSpacing);
    const double curvature = (difference[2] - 2 * difference[1] + difference[0]) / (kSpacing * kSpacing);
    const double firstOrder = -difference[1] / slope;
    return kPublished - difference[1] / (slope + curvature * firstOrder / 2);
  }

  static std::array<double, kNumCouplings> cumulants(Blocks::Means means) {
    std::array<double, kNumCouplings> values{};
    for (int c = 0; c < kNumCouplings; ++c) values[static_cast<std::size_t>(c)] = cumulant(means, c);
    return values;
  }

  static std::array<double, kNumCouplings> cumulants(const Blocks& blocks) {
    std::array<double, kNumCouplings> values{};
    for (int c = 0; c < kNumCouplings; ++c)
      values[static_cast<std::size_t>(c)] =
          blocks.functionOfMeans([c](Blocks::Means means) { return cumulant(means, c); }).value;
    return values;
  }

  /// The two runs are independent, so their errors add in quadrature.
  static Estimate crossing(const Blocks& small, const Blocks& large) {
    const auto ofSmall = cumulants(small), ofLarge = cumulants(large);
    const Estimate bySmall =
        small.functionOfMeans([&](Blocks::Means means) { return crossing(cumulants(means), ofLarge); });
    const Estimate byLarge =
        large.functionOfMeans([&](Blocks::Means means) { return crossing(ofSmall, cumulants(means)); });
    return {crossing(ofSmall, ofLarge), std::hypot(bySmall.error, byLarge.error)};
  }
};

TEST_F(CriticalCoupling, IsWhereTheCumulantsOfTwoSizesCross) {
  const Blocks L8 = measure({8, 4, 10'000}), L16 = measure({16, 8, 2'500}), L32 = measure({32, 16, 500});
  for (const Blocks* blocks : {&L8, &L16, &L32}) expectLongBlocks(*blocks, meanAt(1, kM2));
  const CumulantScaling scaling(kPublished);
  const Estimate ofSmall = crossing(L8, L16), ofLarge = crossing(L16, L32);
  expectAgreement("K where 8 × 8 and 16 × 16 cross", ofSmall, scaling.crossing(8, 16));
  expectAgreement("K where 16 × 16 and 32 × 32 cross", ofLarge, scaling.crossing(16, 32));
  const auto extrapolated = [&](const Estimate& at, double L1, double L2) {
    return Estimate{at.value + kPublished - scaling.crossing(L1, L2), at.error};
  };
  expectAgreement("K_c from 8 × 8 and 16 × 16", extrapolated(ofSmall, 8, 16), kPublished);
  const Estimate critical = extrapolated(ofLarge, 16, 32);
  expectAgreement("K_c from 16 × 16 and 32 × 32", critical, kPublished);
  expectRejection("K_c larger by 1 %", critical, 1.01 * kPublished);
  expectRejection("K_c if bonds counted in full", critical, kPublished / 2);
}

}  // namespace
}  // namespace quorvane::validation
