#include <array>
#include <cmath>

#include "Figures.h"
#include "System.h"

namespace quorvane::validation {
namespace {

constexpr int kTracerSide = 12;
constexpr int kTracers = 9;

/// Nine tracers, each a type of its own (1 to 9), among sites of type 0.
class Tracers {
 public:
  explicit Tracers(double parameter)
      : model_(modelOf(
            {kTracerSide, kTracerSide, kTracers + 1, {{kSwap, kAnyPixelType, kAnyPixelType, parameter}}})) {
    fill(*model_, 0);
    for (int k = 0; k < kTracers; ++k) {
      at_[static_cast<std::size_t>(k)] = {4 * (k / 3), 4 * (k % 3)};
      model_->setSiteValue(4 * (k / 3), 4 * (k % 3), k + 1);
    }
  }

  /// Calls the function with the unwrapped displacement of each tracer over some sweeps.
  template <class Use>
  void displacements(int sweeps, Use&& use) {
    std::array<Step, kTracers> moved{};
    for (int sweep = 0; sweep < sweeps; ++sweep) {
      model_->sweep();
      find(moved);
    }
    for (const Step& step : moved) use(step.i, step.j);
  }

 private:
  struct Step {
    int i, j;
  };

  void find(std::array<Step, kTracers>& moved) {
    for (int i = 0; i < kTracerSide; ++i)
      for (int j = 0; j < kTracerSide; ++j) {
        const int type = model_->varSiteValues[i][j];
        if (type == 0) continue;
        const auto k = static_cast<std::size_t>(type - 1);
        moved[k].i += shortest(i - at_[k].i);
        moved[k].j += shortest(j - at_[k].j);
        at_[k] = {i, j};
      }
  }

  /// A tracer makes half a move per sweep on average, so six moves in one direction within a sweep do not
  /// occur.
  static int shortest(int step) {
    if (step >= kTracerSide / 2) return step - kTracerSide;
    return step < -kTracerSide / 2 ? step + kTracerSide : step;
  }

  std::unique_ptr<LatticeModel> model_;
  std::array<Step, kTracers> at_;
};

class Tracer : public ValidationTest {};

TEST_F(Tracer, WalksAtRandomWhateverTheOthersDo) {
  constexpr double p = 0.25;
  constexpr int sweeps = 8, numBlocks = 200, timesPerBlock = 1200;
  Tracers tracers(p);
  enum { kXX, kYY, kXY, kXXXX, kXXYY, kNumMoments };
  Blocks blocks(kNumMoments, timesPerBlock * kTracers);
  for (int time = 0; time < numBlocks * timesPerBlock; ++time)
    tracers.displacements(sweeps, [&](double x, double y) {
      blocks.sample({x * x, y * y, x * y, x * x * x * x, x * x * y * y});
    });
  for (int moment = 0; moment < kNumMoments; ++moment) expectLongBlocks(blocks, moment);

  // A tracer moves when it is drawn, or when a neighbour is drawn with the direction to it. Of the eight
  // directions six change x, six change y, four both.
  const double sites = kTracerSide * kTracerSide, move = 2 * p / sites;
  const double n = sweeps * (sites + 1);
  const double xx = move * 6 / 8, xxyy = move * 4 / 8;
  expectAgreement("⟨x²⟩ after 8 sweeps", blocks.mean(kXX), n * xx);
  expectAgreement("⟨y²⟩ after 8 sweeps", blocks.mean(kYY), n * xx);
  expectAgreement("⟨xy⟩ after 8 sweeps", blocks.mean(kXY), 0.0);
  expectAgreement("⟨x⁴⟩ after 8 sweeps", blocks.mean(kXXXX), n * xx + 3 * n * (n - 1) * xx * xx);
  expectAgreement("⟨x²y²⟩ after 8 sweeps", blocks.mean(kXXYY), n * xxyy + n * (n - 1) * xx * xx);

  const Estimate rr = blocks.functionOfMeans([](Blocks::Means means) { return means[kXX] + means[kYY]; });
  expectAgreement("⟨r²⟩ = 3pt (1 + 1/144) after 8 sweeps", rr, 2 * n * xx);
  expectRejection("⟨r²⟩ without the extra attempt", rr, 2 * sweeps * sites * xx);
  expectRejection("⟨r²⟩ if only the tracer's own attempts moved it", rr, n * xx);
}

}  // namespace
}  // namespace quorvane::validation
