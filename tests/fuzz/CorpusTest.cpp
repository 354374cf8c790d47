#include <gtest/gtest.h>

#include "CommandLineCheck.h"
#include "DocumentHarness.h"
#include "DocumentSupport.h"
#include "ParserCheck.h"

namespace quorvane {
namespace {

/// Inputs that the fuzzers have found to reach different parts of the program.
void expectNothingWrong(const std::string& corpus, std::string (*check)(std::string_view)) {
  const std::filesystem::path folder = std::filesystem::path(QUORVANE_CORPUS) / corpus;
  const auto names = namesIn(folder);
  EXPECT_GT(names.size(), 10u);
  for (const std::string& name : names) EXPECT_EQ(check(contentOf(folder / name)), "") << folder / name;
}

TEST(Corpus, OfTheParserFindsNothing) { expectNothingWrong("parser", checkParser); }
TEST(Corpus, OfTheWholeReaderFindsNothing) { expectNothingWrong("document", checkDocument); }
TEST(Corpus, OfTheCommandLineFindsNothing) { expectNothingWrong("command-line", checkCommandLine); }

}  // namespace
}  // namespace quorvane
