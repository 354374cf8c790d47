#include <gtest/gtest.h>

#include "RunProgram.h"

namespace quorvane {
namespace {

TEST(RunProgram, GivesOutputErrorsAndStatus) {
  const ProgramResult result = runProgram("sh", {"-c", "cat; echo no >&2; exit 3"}, "some text");
  EXPECT_FALSE(result.isMissing);
  EXPECT_EQ(result.output, "some text");
  EXPECT_EQ(result.errors, "no\n");
  EXPECT_EQ(result.status, 3);
}

TEST(RunProgram, MayWriteMoreThanAPipeHoldsBeforeItReads) {
  const std::string input(1 << 20, 'x');
  const ProgramResult result =
      runProgram("sh", {"-c", "head -c 2000000 /dev/zero >&2; head -c 2000000 /dev/zero; cat"}, input);
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output.size(), 2'000'000 + input.size());
  EXPECT_EQ(result.errors.size(), 2'000'000u);
}

TEST(RunProgram, TellsThatThereIsNone) {
  EXPECT_TRUE(runProgram("no-such-program-anywhere", {}, "").isMissing);
}

TEST(RunProgram, StatusOfASignalIs128AndTheSignal) {
  EXPECT_EQ(runProgram("sh", {"-c", "kill -9 $$"}, "").status, 137);
}

}  // namespace
}  // namespace quorvane
