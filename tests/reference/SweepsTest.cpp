#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "reference/Assign.h"
#include "reference/Cases.h"
#include "reference/Lockstep.h"
#include "reference/ToModel.h"
#include "reference/Trace.h"

namespace quorvane {
namespace {

using reference::assign;
using reference::System;
using Limits = std::numeric_limits<double>;

/// A model, and the plain arrays that must stay equal to it, starting with irregular traces.
class Both {
 public:
  explicit Both(std::unique_ptr<System> system)
      : system_(std::move(system)), model_(reference::toModel(*system_)), traces_(10) {
    static constexpr double odd[] = {0.0,
                                     -0.0,
                                     1.0,
                                     Limits::denorm_min(),
                                     Limits::min(),
                                     3e-320,
                                     2 * Limits::min(),
                                     2.1 * Limits::min(),
                                     -1e-9,
                                     1e-30,
                                     17.5,
                                     Limits::quiet_NaN(),
                                     Limits::infinity(),
                                     -3e-320,
                                     1.9 * Limits::min()};
    std::size_t k = 0;
    for (auto& trace : traces_)
      for (auto& row : trace.at)
        for (double& h : row) h = odd[k++ * 7 % std::size(odd)];
    for (int t = 0; t < 10; ++t) assign(model_->varMobileHistory[t], traces_[static_cast<std::size_t>(t)].at);
  }

  void setPersistence(double persistence) {
    for (auto& ofType : model_->varHistoryPersistenceConst) ofType = persistence;
  }

  void sweep() {
    reference::sweep(*system_);
    model_->sweep();
  }

  void updateTraces() {
    model_->updateHistory();
    for (int t = 0; t < system_->numTypes; ++t)
      max_[t] = reference::updateTrace(*system_, t, model_->varHistoryPersistenceConst[t],
                                       traces_[static_cast<std::size_t>(t)].at);
  }

  void expectEqual() const {
    for (int i = 0; i < 256; ++i)
      for (int j = 0; j < 256; ++j) ASSERT_EQ(model_->varSiteValues[i][j], system_->lattice[i][j]);
    for (int t = 0; t < 10; ++t)
      for (int i = 0; i < 256; ++i)
        for (int j = 0; j < 256; ++j) {
          const double expected = traces_[static_cast<std::size_t>(t)].at[i][j];
          ASSERT_TRUE(reference::same(model_->varMobileHistory[t][i][j], expected))
              << "type " << t << " at " << i << ", " << j << ": " << model_->varMobileHistory[t][i][j]
              << " instead of " << expected;
        }
    for (int t = 0; t < system_->numTypes; ++t) ASSERT_EQ(model_->varMobileHistoryMax[t], max_[t]);
    ASSERT_TRUE(reference::sourcesAgree());
  }

 private:
  std::unique_ptr<System> system_;
  std::unique_ptr<LatticeModel> model_;
  struct Trace {
    double at[256][256];
  };
  std::vector<Trace> traces_;
  double max_[10] = {};
};

TEST(Sweeps, EqualTheReferenceWithTheirTracesOnTypicalSystems) {
  for (const auto& typical : reference::typicalCases()) {
    SCOPED_TRACE(typical.name);
    reference::restartSources();
    Both both(typical.make());
    both.setPersistence(0.9);
    for (int k = 0; k < 3; ++k) {
      both.sweep();
      both.updateTraces();
    }
    both.expectEqual();
  }
}

TEST(Sweeps, EqualTheReferenceOnAwkwardLattices) {
  for (const auto size : reference::awkwardSizes()) {
    SCOPED_TRACE(std::to_string(size.imax) + " by " + std::to_string(size.jmax));
    reference::restartSources();
    Both both(reference::randomSystem(size, 77));
    both.setPersistence(0.5);
    for (int k = 0; k < 5; ++k) {
      both.sweep();
      both.updateTraces();
    }
    both.expectEqual();
  }
}

class Persistences : public testing::TestWithParam<double> {};

TEST_P(Persistences, LetTracesDecayAsTheReferenceDoes) {
  for (const reference::Size size : {reference::Size{7, 13}, reference::Size{64, 254}}) {
    reference::restartSources();
    Both both(reference::randomSystem(size, 3));
    both.setPersistence(GetParam());
    for (int k = 0; k < 60; ++k) both.updateTraces();
    both.expectEqual();
  }
}

INSTANTIATE_TEST_SUITE_P(Odd, Persistences,
                         testing::Values(0.0, -0.0, 0.25, 0.5, 0.9, 0.999, 1.0, 1.5, -0.5, 1e-200, 5e-324,
                                         Limits::quiet_NaN(), Limits::infinity()));

/// Long enough for a trace without additions to decay through the denormal numbers to its fixed point.
TEST(Sweeps, TracesOfVanishedTypesDecayAsTheReferenceDoes) {
  for (const double persistence : {0.5, 0.9, 0.95}) {
    reference::restartSources();
    Both both(reference::randomSystem({3, 9}, 3));
    both.setPersistence(persistence);
    for (int k = 0; k < 16'000; ++k) both.updateTraces();
    both.expectEqual();
  }
}

}  // namespace
}  // namespace quorvane
