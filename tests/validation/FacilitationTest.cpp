#include <cmath>

#include "Figures.h"
#include "System.h"

namespace quorvane::validation {
namespace {

constexpr int kFacilitatedSide = 64;
constexpr double kField = 1.0;

struct Constraint {
  std::string name;
  std::string description;
  int facilitators;
  double shareOfDisguised;  ///< of sites that never flip and masquerade as type 1
  int sweepsPerBlock;
};

void PrintTo(const Constraint& constraint, std::ostream* out) { *out << constraint.name; }

/// Flips 0–1 in a field on type 1, facilitated by neighbours of type 1.
class FacilitatedFlips : public ValidationTest, public testing::WithParamInterface<Constraint> {
 protected:
  enum { kShare, kEdge, kCorner, kNumMeans };

  Blocks measure() const {
    constexpr int numBlocks = 100, warmUp = 1000;
    const int sweepsPerBlock = GetParam().sweepsPerBlock;
    System system{
        kFacilitatedSide, kFacilitatedSide, 3, {{kReversibleFlip, 0, 1, 1.0, GetParam().facilitators, 1}}};
    system.field[1] = kField;
    system.masquerade[2] = 1;
    const auto model = modelOf(system);
    const int disguised = placeDisguised(*model);
    for (int sweep = 0; sweep < warmUp; ++sweep) model->sweep();
    Blocks blocks(kNumMeans, sweepsPerBlock);
    for (int sweep = 0; sweep < numBlocks * sweepsPerBlock; ++sweep) {
      model->sweep();
      sample(*model, disguised, blocks);
    }
    return blocks;
  }

 private:
  /// Keeps type 2 only on every n-th site, and puts type 1 elsewhere.
  int placeDisguised(LatticeModel& model) const {
    const int every = GetParam().shareOfDisguised > 0 ? static_cast<int>(1 / GetParam().shareOfDisguised) : 0;
    int site = 0, count = 0;
    for (int i = 0; i < kFacilitatedSide; ++i)
      for (int j = 0; j < kFacilitatedSide; ++j, ++site) {
        const bool disguised = every > 0 && site % every == 0;
        if (disguised)
          model.setSiteValue(i, j, 2);
        else if (model.getSiteValue(i, j) == 2)
          model.setSiteValue(i, j, 1);
        count += disguised ? 1 : 0;
      }
    return count;
  }

  /// Means over the sites and pairs that can flip.
  static void sample(const LatticeModel& model, int disguised, Blocks& blocks) {
    int ones = 0, edges = 0, bothOnEdge = 0, corners = 0, bothOnCorner = 0;
    const auto countPair = [](int a, int b, int& pairs, int& both) {
      if (a == 2 || b == 2) return;
      ++pairs;
      both += a * b;
    };
    for (int i = 0; i < kFacilitatedSide; ++i) {
      const int next = (i + 1) % kFacilitatedSide;
      for (int j = 0; j < kFacilitatedSide; ++j) {
        const int above = (j + 1) % kFacilitatedSide;
        const int type = model.varSiteValues[i][j];
        ones += type == 1 ? 1 : 0;
        countPair(type, model.varSiteValues[next][j], edges, bothOnEdge);
        countPair(type, model.varSiteValues[i][above], edges, bothOnEdge);
        countPair(type, model.varSiteValues[next][above], corners, bothOnCorner);
      }
    }
    blocks.sample({ones / static_cast<double>(kFacilitatedSide * kFacilitatedSide - disguised),
                   bothOnEdge / static_cast<double>(edges), bothOnCorner / static_cast<double>(corners)});
  }
};

TEST_P(FacilitatedFlips, HaveAProductMeasureAsEquilibrium) {
  const std::string& name = GetParam().description;
  const Blocks blocks = measure();
  for (int mean = 0; mean < kNumMeans; ++mean) expectLongBlocks(blocks, mean);

  const auto occupancy = [](double field) { return 1 / (1 + std::exp(field)); };
  const double c = occupancy(kField);
  expectAgreement(name + ": c = 1/(1 + exp(field))", blocks.mean(kShare), c);
  expectAgreement(name + ": both of a pair across an edge, c²", blocks.mean(kEdge), c * c);
  expectAgreement(name + ": both of a pair across a corner, c²", blocks.mean(kCorner), c * c);
  expectRejection(name + ": a field larger by 1 %", blocks.mean(kShare), occupancy(1.01 * kField));
}

INSTANTIATE_TEST_SUITE_P(Constraints, FacilitatedFlips,
                         testing::Values(Constraint{"None", "no neighbours needed", 0, 0.0, 100},
                                         Constraint{"One", "one neighbour", 1, 0.0, 100},
                                         Constraint{"Two", "two neighbours", 2, 0.0, 200},
                                         Constraint{"Three", "three neighbours", 3, 0.0, 400},
                                         Constraint{"Disguised", "three neighbours, disguised ones", 3, 0.05,
                                                    300}),
                         [](const auto& one) { return one.param.name; });

}  // namespace
}  // namespace quorvane::validation
