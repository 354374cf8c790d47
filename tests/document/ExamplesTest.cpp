#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>

#include "Examples.h"

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
  const std::string command = std::string(QUORVANE_MAKE_EXAMPLES) + " '" + folder.path().string() + "'";
  ASSERT_EQ(std::system(command.c_str()), 0);
  EXPECT_EQ(namesIn(folder.path()), exampleNames());
  ASSERT_GE(exampleNames().size(), 14u);
  for (const std::string& name : exampleNames())
    EXPECT_EQ(contentOf(folder / name), contentOf(exampleFile(name))) << name;
}

TEST(Examples, ProgramSaysWhatItNeedsAndFailsWhereItCannotWrite) {
  const std::string program = QUORVANE_MAKE_EXAMPLES;
  EXPECT_EQ(WEXITSTATUS(std::system((program + " 2>/dev/null").c_str())), 2);
  const TemporaryFolder folder;
  const std::string missing = (folder / "missing").string();
  EXPECT_EQ(WEXITSTATUS(std::system((program + " '" + missing + "' 2>/dev/null").c_str())), 1);
}

}  // namespace
}  // namespace quorvane
