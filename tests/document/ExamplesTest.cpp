#include <gtest/gtest.h>

#include "Examples.h"
#include "Process.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;

class Example : public testing::TestWithParam<std::string> {
 protected:
  fs::path file() const { return exampleFile(GetParam()); }
};

TEST_P(Example, IsSavedWithTheBytesThatWereOpened) {
  EXPECT_EQ(writeDocument(*openedExample(file())), contentOf(file()));
}

TEST_P(Example, OpensAsTheSameSystemAfterARunAndASave) {
  const TemporaryFolder folder;
  const auto model = openedExample(file());
  constexpr int sweeps = 20;
  model->runSweeps(sweeps);
  EXPECT_NE(writeDocument(*model), contentOf(file())) << "nothing happens";
  ASSERT_TRUE(saveDocument(*model, folder / "again.quorvane").saved);
  const auto again = openedExample(folder / "again.quorvane");
  EXPECT_EQ(writeDocument(*again), writeDocument(*model));
  for (int a = 0; a < kMaxPixelTypes; ++a)
    for (int b = 0; b < kMaxPixelTypes; ++b)
      EXPECT_EQ(again->getPixelIntConstant(a, b), model->getPixelIntConstant(a, b));
}

TEST_P(Example, HasReadableNames) {
  const auto model = openedExample(file());
  const auto expectReadable = [](const std::string& name) {
    EXPECT_GT(name.size(), 2u);
    for (const char c : name) EXPECT_TRUE(c >= ' ' && c <= '~') << name;
  };
  for (int t = 0; t < model->getNumPixelTypes(); ++t) expectReadable(model->getPixelName(t));
  for (int r = 0; r < model->getNumRules(); ++r) expectReadable(model->getRuleName(r));
}

INSTANTIATE_TEST_SUITE_P(Examples, Example, testing::ValuesIn(exampleNames()), exampleTestName);

TEST(Examples, EqualTheOutputOfMakeExamples) {
  const TemporaryFolder folder;
  ASSERT_EQ(run(QUORVANE_MAKE_EXAMPLES, {folder.path()}).status, 0);
  EXPECT_EQ(namesIn(folder.path()), exampleNames());
  ASSERT_GE(exampleNames().size(), 14u);
  for (const std::string& name : exampleNames())
    EXPECT_EQ(contentOf(folder / name), contentOf(exampleFile(name))) << name;
}

TEST(Examples, ProgramPrintsItsUsageAndFailsIfItCannotWrite) {
  EXPECT_EQ(run(QUORVANE_MAKE_EXAMPLES, {}).status, 2);
  const TemporaryFolder folder;
  EXPECT_EQ(run(QUORVANE_MAKE_EXAMPLES, {folder / "missing"}).status, 1);
}

}  // namespace
}  // namespace quorvane
