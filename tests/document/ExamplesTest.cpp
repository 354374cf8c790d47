#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>

#include "DocumentSupport.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> exampleNames() {
  std::vector<std::string> examples;
  for (const std::string& name : namesIn(QUORVANE_EXAMPLES))
    if (name.ends_with(".quorvane")) examples.push_back(name);
  return examples;
}

std::unique_ptr<LatticeModel> openedExample(const fs::path& file) {
  auto model = freshModel();
  const OpenResult result = openDocument(*model, file);
  EXPECT_EQ(result.status, OpenStatus::kOpened) << file << ' ' << result.message;
  return model;
}

class Example : public testing::TestWithParam<std::string> {
 protected:
  fs::path file() const { return fs::path(QUORVANE_EXAMPLES) / GetParam(); }
};

TEST_P(Example, SavesAsItWasOpened) { EXPECT_EQ(writeDocument(*openedExample(file())), contentOf(file())); }

TEST_P(Example, RunsSavesAndOpensAgainAsTheSame) {
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

std::string testNameOf(const testing::TestParamInfo<std::string>& info) {
  std::string name;
  for (const char c : info.param)
    if (std::isalnum(static_cast<unsigned char>(c))) name.push_back(c);
  return name;
}

INSTANTIATE_TEST_SUITE_P(Examples, Example, testing::ValuesIn(exampleNames()), testNameOf);

TEST(Examples, AreWhatTheirProgramMakes) {
  const TemporaryFolder folder;
  const std::string command = std::string(QUORVANE_MAKE_EXAMPLES) + " '" + folder.path().string() + "'";
  ASSERT_EQ(std::system(command.c_str()), 0);
  EXPECT_EQ(namesIn(folder.path()), exampleNames());
  ASSERT_GE(exampleNames().size(), 3u);
  for (const std::string& name : exampleNames())
    EXPECT_EQ(contentOf(folder / name), contentOf(fs::path(QUORVANE_EXAMPLES) / name)) << name;
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
