#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "DocumentSupport.h"
#include "Files.h"
#include "checkpoint/ModelBytes.h"
#include "engine/f_ran0.h"

namespace quorvane {
namespace {

std::string bytesOf(const LatticeModel& model) {
  ByteWriter bytes;
  transferModel(bytes, model);
  return bytes.take();
}

void restore(LatticeModel& model, const std::string& bytes) {
  ByteReader reader(bytes);
  transferModel(reader, model);
  reader.requireEnd();
}

/// Calls a function for each number and name of a system. The names of the binding are as many as the
/// members, so that a new member does not compile until it is here.
template <typename State, typename Visit>
void forEveryValue(State& state, const Visit& visit) {
  auto& [a1, a2, a3, a4, a5, a6, a7, a8, a9, a10, a11, a12, a13, b1, b2, b3, b4, b5, b6, b7, b8, b9, b10, c1,
         c2, c3, c4, c5, c6, c7, c8, c9, c10, d1, d2, d3, d4, d5, e1, e2, e3, e4, e5, e6, e7] = state;
  const auto all = [&](auto&... fields) { (visit(fields), ...); };
  all(a1, a2, a3, a4, a5, a6, a7, a8, a9, a10, a11, a12, a13);
  all(b1, b2, b3, b4, b5, b6, b7, b8, b9, b10, c1, c2, c3, c4, c5, c6, c7, c8, c9, c10);
  all(d1, d2, d3, d4, d5, e1, e2, e3, e4, e5, e6, e7);
}

/// Gives every number another value, of those that are valid everywhere.
class Filling {
 public:
  explicit Filling(int first) : next_(first) {}

  void operator()(Relaxed<double>& number) const { number = std::sqrt(static_cast<double>(++next_)); }
  void operator()(Relaxed<std::int32_t>& number) const { number = ++next_ % kMaxPixelTypes; }
  void operator()(SharedName& name) const { name = "name " + std::to_string(++next_); }
  template <typename T, std::size_t kSize>
  void operator()(T (&array)[kSize]) const {
    for (T& element : array) (*this)(element);
  }

 private:
  mutable int next_;
};

/// All numbers and names in their order.
class Listing {
 public:
  void operator()(const Relaxed<double>& number) const { numbers.push_back(number); }
  void operator()(const Relaxed<std::int32_t>& number) const { numbers.push_back(number.load()); }
  void operator()(const SharedName& name) const { names.push_back(name.text()); }
  template <typename T, std::size_t kSize>
  void operator()(const T (&array)[kSize]) const {
    for (const T& element : array) (*this)(element);
  }

  mutable std::vector<double> numbers;
  mutable std::vector<std::string> names;
};

std::unique_ptr<LatticeModel> filledModel(int first) {
  auto model = std::make_unique<LatticeModel>();
  forEveryValue(static_cast<ModelState&>(*model), Filling(first));
  model->varImax = model->varJmax = kMaxSide;
  model->varNumSiteTypes = kMaxPixelTypes;
  model->setSweepsDone(first);
  return model;
}

TEST(ModelBytes, HoldEveryField) {
  const auto model = filledModel(1), other = filledModel(1'000'006);
  const Listing expected, before, after;
  forEveryValue(static_cast<const ModelState&>(*model), expected);
  forEveryValue(static_cast<const ModelState&>(*other), before);
  ASSERT_GT(expected.numbers.size(), 700'000u);
  ASSERT_EQ(expected.names.size(), 60u);
  // Else a field that is left out could have the value by chance.
  int numAlike = 0;
  for (std::size_t k = 0; k < expected.numbers.size(); ++k)
    if (expected.numbers[k] == before.numbers[k]) ++numAlike;
  ASSERT_EQ(numAlike, 3);  // both sides and the number of types

  restore(*other, bytesOf(*model));
  forEveryValue(static_cast<const ModelState&>(*other), after);
  EXPECT_TRUE(after.numbers == expected.numbers);
  EXPECT_EQ(after.names, expected.names);
  EXPECT_EQ(other->sweepsDone(), 1);
  EXPECT_TRUE(bytesOf(*other) == bytesOf(*model));
}

TEST(ModelBytes, MakeTheSameSweepsAndTraces) {
  for (const char* name : {"silent-carriers", "phase-separation", "facilitated-flips"}) {
    restartRandomNumbers();
    const auto model = freshModel();
    const std::string text = contentOf(std::string(QUORVANE_EXAMPLES "/") + name + ".quorvane");
    ASSERT_EQ(readDocument(*model, text).status, OpenStatus::kOpened);
    model->runSweeps(30);
    const std::string bytes = bytesOf(*model);
    const auto random = processRandomSource.state();
    model->runSweeps(20);
    const auto next = processRandomSource.next();

    const auto other = filledModel(4);
    restore(*other, bytes);
    processRandomSource.goOnFrom(*random);
    other->runSweeps(20);
    EXPECT_EQ(processRandomSource.next(), next);
    EXPECT_TRUE(bytesOf(*other) == bytesOf(*model)) << name;
    EXPECT_EQ(writeDocument(*other), writeDocument(*model));
  }
}

TEST(ModelBytes, WithAnIndexOutsideAnArrayAreRefused) {
  using Change = void (*)(LatticeModel&);
  const Change changes[] = {[](LatticeModel& m) { m.varNumSiteTypes = 0; },
                            [](LatticeModel& m) { m.varNumRules = kMaxRules + 1; },
                            [](LatticeModel& m) { m.varNumRules = -1; },
                            [](LatticeModel& m) { m.varSiteValues[1][2] = kMaxPixelTypes; },
                            [](LatticeModel& m) { m.varSiteValues[0][0] = -1; },
                            [](LatticeModel& m) { m.varRuleEndPoints[3][1] = kMaxPixelTypes; },
                            [](LatticeModel& m) { m.varRuleEndPoints[3][0] = -2; },
                            [](LatticeModel& m) { m.varRuleFacNumAndType[49][1] = kMaxPixelTypes; },
                            [](LatticeModel& m) { m.varSiteMasqueradeAs[9] = kMaxPixelTypes; },
                            [](LatticeModel& m) { m.varAccessibleRulesForSiteID[9][49] = kMaxRules; },
                            [](LatticeModel& m) { m.varAccessibleRulesForSiteID[0][0] = -2; },
                            [](LatticeModel& m) { m.varAccessibleRulesForSiteIDCount[0] = kMaxRules + 1; },
                            [](LatticeModel& m) { m.varPaintbrushColor = kMaxPixelTypes; },
                            [](LatticeModel& m) { m.varMyState = 11; },
                            // Without sites the writer reads none.
                            [](LatticeModel& m) { m.varImax = -1; }, [](LatticeModel& m) { m.varJmax = -1; },
                            [](LatticeModel& m) { m.varImax = 0, m.varJmax = kMaxSide + 1; },
                            [](LatticeModel& m) { m.varJmax = 0, m.varImax = kMaxSide + 1; }};
  for (const Change& change : changes) {
    const auto model = freshModel();
    model->initializeLatticeModel(2, 3, 4);
    ASSERT_NO_THROW(restore(*freshModel(), bytesOf(*model)));
    change(*model);
    EXPECT_THROW(restore(*freshModel(), bytesOf(*model)), CheckpointError) << &change - changes;
  }
}

TEST(ModelBytes, OfAModelThatLostRulesAreRead) {
  for (int rule = 0; rule < 3; ++rule) {
    const auto model = freshModel();
    model->initializeLatticeModel(2, 8, 8);
    model->makeNewRule("swap", kSwap, 0, 1);
    model->makeNewRule("flip", kReversibleFlip, 0, kAnyPixelType);
    model->makeNewRule("repel", kPixelPixelInteraction, 0, 1);
    model->setRuleParam(0, 0.5);
    model->delRule(rule);
    const auto again = freshModel();
    restore(*again, bytesOf(*model));
    EXPECT_EQ(bytesOf(*again), bytesOf(*model));
    EXPECT_EQ(again->getNumRules(), 2);
    again->runSweeps(3);
  }
}

TEST(ModelBytes, AtEveryLengthButTheirOwnAreRefused) {
  const auto model = freshModel();
  model->initializeLatticeModel(1, 1, 2);
  const std::string bytes = bytesOf(*model);
  const auto other = freshModel();
  for (std::size_t size = 0; size < bytes.size(); ++size)
    EXPECT_THROW(restore(*other, bytes.substr(0, size)), CheckpointError) << size;
  EXPECT_THROW(restore(*other, bytes + '\0'), CheckpointError);
  EXPECT_NO_THROW(restore(*other, bytes));
}

}  // namespace
}  // namespace quorvane
