#include <gtest/gtest.h>

#include <set>
#include <string>

#include "engine/RuleKinds.h"
#include "reference/Cases.h"
#include "reference/Lockstep.h"

namespace quorvane {
namespace {

using reference::Case;
using reference::Lockstep;
using reference::Size;

class TypicalAttempts : public testing::TestWithParam<Case> {};

TEST_P(TypicalAttempts, EqualTheReferenceDrawForDrawAndSiteForSite) {
  reference::restartSources();
  Lockstep both(GetParam().make());
  for (int k = 0; k < GetParam().attempts; ++k) ASSERT_EQ(both.attempt(), "") << "attempt " << k;
  ASSERT_EQ(both.compareLattices(), "");
  for (int i = 0; i < both.plain().imax; i += 3)
    for (int j = 0; j < both.plain().jmax; j += 5) ASSERT_EQ(both.compareQueriesAt(i, j), "");
}

INSTANTIATE_TEST_SUITE_P(Cases, TypicalAttempts, testing::ValuesIn(reference::typicalCases()),
                         [](const auto& system) { return system.param.name; });

TEST(RandomSystems, HaveRulesOfEveryKind) {
  std::set<int> types;
  for (std::uint64_t seed = 0; seed < 100; ++seed) {
    const auto system = reference::randomSystem({3, 3}, seed);
    types.insert(system->ruleType, system->ruleType + system->numRules);
  }
  for (const RuleKind& kind : kRuleKinds) EXPECT_TRUE(types.contains(kind.type)) << kind.label;
}

class RandomRuleTables : public testing::TestWithParam<Size> {};

TEST_P(RandomRuleTables, EqualTheReferenceDrawForDrawAndSiteForSite) {
  const Size size = GetParam();
  constexpr std::uint64_t tables = 300;
  int active = 0;
  for (std::uint64_t seed = 0; seed < tables; ++seed) {
    SCOPED_TRACE("table " + std::to_string(seed));
    reference::restartSources(1 + static_cast<int>(seed * 13 % 101));
    Lockstep both(reference::randomSystem(size, 1000 + seed));
    for (int k = 0; k < 400; ++k) ASSERT_EQ(both.attempt(), "") << "attempt " << k;
    ASSERT_EQ(both.compareLattices(), "");
    for (int i = 0; i < size.imax; i += 1 + size.imax / 4)
      for (int j = 0; j < size.jmax; j += 1 + size.jmax / 4) ASSERT_EQ(both.compareQueriesAt(i, j), "");
    if (both.changes() > 0) ++active;
  }
  // The comparison would be weak if the tables changed nothing. On a single site few can.
  EXPECT_GE(active, 50);
}

INSTANTIATE_TEST_SUITE_P(Sizes, RandomRuleTables, testing::ValuesIn(reference::awkwardSizes()),
                         [](const auto& size) {
                           return std::to_string(size.param.imax) + "by" + std::to_string(size.param.jmax);
                         });

}  // namespace
}  // namespace quorvane
