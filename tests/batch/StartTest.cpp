#include "RunnerTest.h"
#include "batch/Start.h"
#include "engine/f_ran0.h"

namespace quorvane {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class Started : public Runner {
 protected:
  /// The document after 30 sweeps of the growth example with some options.
  std::string after(std::vector<std::string> options) {
    options.insert(options.begin(), {kExample, "--sweeps", "30", "--output", output_});
    const Finished finished = runBatchProgram(options);
    EXPECT_EQ(finished.status, 0) << finished.err;
    return contentOf(output_);
  }
};

TEST_F(Started, WithTheSeedOfTenIsAsWithout) { EXPECT_EQ(after({"--seed", "10"}), after({})); }

TEST_F(Started, WithAnotherSeedIsAnotherRunAndTheSameEachTime) {
  const std::string one = after({"--seed", "1"});
  EXPECT_NE(one, after({}));
  EXPECT_NE(one, after({"--seed", "2"}));
  EXPECT_NE(one, after({"--seed", "2147483647"}));
  EXPECT_EQ(one, after({"--seed", "1"}));
}

TEST_F(Started, TakesSeedDocumentSettingsRemakeFillAndSweepsInThisOrder) {
  const std::string actual = after({"--fill", "#0=0.5,#1=0.5", "--remake", "40x30", "--set",
                                    "rule #0 parameter=0.25", "--set", "type #1 field=1.5", "--seed", "77"});
  processRandomSource.startAnew(77);
  const auto model = freshModel();
  ASSERT_EQ(openDocument(*model, kExample).status, OpenStatus::kOpened);
  model->setRuleParam(0, 0.25);
  model->setPixelField(1, 1.5);
  model->initializeLatticeModel(-1, 40, 30);
  for (int i = 0; i < 40; ++i)
    for (int j = 0; j < 30; ++j) model->setSiteValue(i, j, fRandReal() < 0.5 ? 0 : 1);
  model->runSweeps(30);
  EXPECT_EQ(actual, writeDocument(*model));
}

TEST_F(Started, AppliesSettingsInTheOrderGiven) {
  EXPECT_EQ(after({"--set", "rule #0 parameter=0.1", "--set", "rule #0 parameter=0.9"}),
            after({"--set", "rule #0 parameter=0.9"}));
}

TEST_F(Started, RefusesWhatMakesNoSenseBeforeItOpensTheDocument) {
  const std::pair<std::vector<std::string>, const char*> wrong[] = {
      {{"--seed", "0"}, "--seed: \"0\" is not a whole number from 1 to 2147483647"},
      {{"--seed", "2147483648"}, "--seed: \"2147483648\" is not"},
      {{"--seed", "-1"}, "--seed: \"-1\" is not"},
      {{"--seed", "1", "--seed", "2"}, "--seed"},
      {{"--remake", "40"}, "--remake: \"40\" is not IxJ with sides from 1 to 256, such as 128x64"},
      {{"--remake", "0x5"}, "--remake: \"0x5\""},
      {{"--remake", "5x257"}, "--remake: \"5x257\""},
      {{"--remake", "5X5"}, "--remake: \"5X5\""},
      {{"--remake", "5x5x5"}, "--remake: \"5x5x5\""},
      {{"--remake", "5x 5"}, "--remake: \"5x 5\""},
      {{"--fill", "#0=0.5"}, "--fill: the shares add up to 0.5, not to 1"},
      {{"--fill", "--trace"}, "--fill: needs a value, not the option \"--trace\""},
      {{"--set", "growth"}, "--set: needs \"rule NAME FIELD=VALUE\""},
      {{"--set", ""}, "--set: needs a value"},
  };
  for (auto [options, line] : wrong) {
    options.insert(options.begin(), {"missing", "--sweeps", "1", "--output", output_});
    const Finished finished = runBatchProgram(options);
    EXPECT_EQ(finished.status, 2) << line;
    EXPECT_THAT(finished.err, StartsWith("quorvane-batch: " + std::string(line)));
    EXPECT_THAT(finished.err, HasSubstr("(--help tells more)\n"));
  }
}

TEST_F(Started, RefusesWhatDoesNotFitTheDocumentAndWritesNothing) {
  const std::pair<std::vector<std::string>, const char*> wrong[] = {
      {{"--set", "rule Growht parameter=0.5"}, "--set: no rule is called \"Growht\"; there are #0 "},
      {{"--set", "rule #0 parameter=7"}, "--set: parameter: 7 is not from 0 to 1"},
      {{"--fill", "Growht=1"}, "--fill: no pixel type is called \"Growht\"; there are #0 "},
  };
  for (auto [options, line] : wrong) {
    options.insert(options.begin(), {kExample, "--sweeps", "1", "--output", output_});
    const Finished finished = runBatchProgram(options);
    EXPECT_EQ(finished.status, 2) << line;
    EXPECT_THAT(finished.err, StartsWith("quorvane-batch: " + std::string(line)));
    EXPECT_EQ(std::count(finished.err.begin(), finished.err.end(), '\n'), 1);
    EXPECT_FALSE(std::filesystem::exists(output_));
  }
}

}  // namespace
}  // namespace quorvane
