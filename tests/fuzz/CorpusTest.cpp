#include <gtest/gtest.h>

#include "CheckpointCheck.h"
#include "CommandLineCheck.h"
#include "DocumentHarness.h"
#include "DocumentSupport.h"
#include "ParserCheck.h"
#include "RecordCheck.h"
#include "StartCheck.h"

namespace quorvane {
namespace {

/// Inputs found by the fuzzers that reach different parts of the program.
void expectNothingWrong(const std::string& corpus, std::string (*check)(std::string_view)) {
  const std::filesystem::path folder = std::filesystem::path(QUORVANE_CORPUS) / corpus;
  const auto names = namesIn(folder);
  EXPECT_GT(names.size(), 10u);
  for (const std::string& name : names) EXPECT_EQ(check(contentOf(folder / name)), "") << folder / name;
}

TEST(Corpus, OfTheParserPassesItsCheck) { expectNothingWrong("parser", checkParser); }
TEST(Corpus, OfTheWholeReaderPassesItsCheck) { expectNothingWrong("document", checkDocument); }
TEST(Corpus, OfTheCommandLinePassesItsCheck) { expectNothingWrong("command-line", checkCommandLine); }
TEST(Corpus, OfStartsPassesItsCheck) { expectNothingWrong("start", checkStart); }
TEST(Corpus, OfRecordsPassesItsCheck) { expectNothingWrong("record", checkRecord); }
TEST(Corpus, OfCheckpointsPassesItsCheck) { expectNothingWrong("checkpoint", checkCheckpoint); }

}  // namespace
}  // namespace quorvane
