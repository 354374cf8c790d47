#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <sstream>

#include "BatchSupport.h"
#include "DocumentSupport.h"
#include "batch/CommandLine.h"

namespace quorvane {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::Not;
using Arguments = std::vector<std::string>;

BatchOptions parsed(const Arguments& arguments) {
  std::vector<const char*> argv = {"quorvane-batch"};
  for (const std::string& argument : arguments) argv.push_back(argument.c_str());
  const auto result = parseCommandLine(static_cast<int>(argv.size()), argv.data());
  EXPECT_TRUE(std::holds_alternative<BatchOptions>(result));
  return std::get<BatchOptions>(result);
}

TEST(CommandLine, NeedsOnlyADocumentANumberOfSweepsAndAResult) {
  const BatchOptions options = parsed({"in.quorvane", "--sweeps", "10", "--picture", "png"});
  EXPECT_EQ(options.document, "in.quorvane");
  EXPECT_EQ(options.sweeps, 10);
  EXPECT_EQ(options.picture, "png");
  EXPECT_FALSE(options.output || options.populations || options.frames || options.trace);
  EXPECT_EQ(options.every, 1);
  EXPECT_EQ(options.scale, 4);
}

TEST(CommandLine, AcceptsEveryOption) {
  const BatchOptions options =
      parsed({"--sweeps", "9000000000000", "--output", "out", "--populations", "csv", "--every", "7000000000",
              "--picture", "png", "--scale", "32", "--frames", "folder", "--trace", "in"});
  EXPECT_EQ(options.document, "in");
  EXPECT_EQ(options.sweeps, 9000000000000);
  EXPECT_EQ(options.output, "out");
  EXPECT_EQ(options.populations, "csv");
  EXPECT_EQ(options.every, 7000000000);
  EXPECT_EQ(options.picture, "png");
  EXPECT_EQ(options.scale, 32);
  EXPECT_EQ(options.frames, "folder");
  EXPECT_TRUE(options.trace);
}

TEST(CommandLine, ReadsAHyphenAsStandardInputAndOutput) {
  const BatchOptions options = parsed({"-", "--sweeps", "0", "--output", "-"});
  EXPECT_EQ(options.document, "-");
  EXPECT_EQ(options.output, "-");
}

TEST(CommandLine, MayWriteTheDocumentInPlace) {
  EXPECT_EQ(parsed({"in", "--sweeps", "0", "--output", "in"}).output, "in");
}

class WrongUsage : public testing::TestWithParam<Arguments> {};

TEST_P(WrongUsage, ExitsWithTwoAndSaysWhy) {
  const Finished finished = runBatchProgram(GetParam());
  EXPECT_EQ(finished.status, 2);
  EXPECT_THAT(finished.out, IsEmpty());
  EXPECT_THAT(finished.err, MatchesRegex("quorvane-batch: [^\n]+ \\(--help tells more\\)\n"));
  EXPECT_THAT(finished.err, Not(HasSubstr("no result is asked for")));
}

INSTANTIATE_TEST_SUITE_P(
    CommandLine, WrongUsage,
    testing::Values(
        Arguments{}, Arguments{"in"}, Arguments{"--sweeps", "3"}, Arguments{"in", "--sweeps"},
        Arguments{"in", "--sweeps", "-1"}, Arguments{"in", "--sweeps", "many"},
        Arguments{"in", "--sweeps", "1.5"}, Arguments{"in", "--sweeps", "0x10"},
        Arguments{"in", "--sweeps", "5 "}, Arguments{"in", "--sweeps", "99999999999999999999"},
        Arguments{"in", "--sweeps", "1", "--every", "0"}, Arguments{"in", "--sweeps", "1", "--every", "-2"},
        Arguments{"in", "--sweeps", "1", "--scale", "0"}, Arguments{"in", "--sweeps", "1", "--scale", "33"},
        Arguments{"in", "--sweeps", "1", "--picture"}, Arguments{"in", "--sweeps", "1", "--unknown"},
        Arguments{"in", "in", "--sweeps", "1"},
        Arguments{"in", "--sweeps", "1", "--output", "a", "--picture", "./b/../a"},
        Arguments{"in", "--sweeps", "1", "--output", "a", "--frames", "a/"},
        Arguments{"in", "--sweeps", "1", "--frames"}, Arguments{"in", "--sweeps", "1", "--frames", "-"},
        Arguments{"in", "--sweeps", "1", "--trace"},
        Arguments{"in", "--sweeps", "1", "--populations", "a", "--trace"},
        Arguments{"in", "--sweeps", "1", "--output", "-", "--populations", "-"},
        Arguments{"in", "--sweeps", "1", "--picture", "-", "--populations", "-"},
        Arguments{"in", "--sweeps", "1", "--output", "-", "--picture", "/dev/stdout"}));

TEST(CommandLine, SaysWhatIsWrong) {
  const auto errorOf = [](const Arguments& arguments) { return runBatchProgram(arguments).err; };
  EXPECT_THAT(errorOf({"in", "--sweeps", "1", "--output", "-", "--picture", "-"}),
              HasSubstr("standard output (-): is asked for twice"));
  EXPECT_THAT(errorOf({"in", "--sweeps", "1", "--trace"}), HasSubstr("--trace: needs --picture or --frames"));
  EXPECT_THAT(errorOf({"in", "--sweeps", "x", "--output", "a"}),
              HasSubstr("--sweeps: \"x\" is not a whole number from 0 upwards"));
}

TEST(CommandLine, SaysWhatIsWrongWithAWord) {
  const auto expectError = [](const Arguments& arguments, const std::string& line) {
    const Finished finished = runBatchProgram(arguments);
    EXPECT_EQ(finished.status, 2);
    EXPECT_EQ(finished.err, "quorvane-batch: " + line + " (--help tells more)\n");
  };
  expectError({"in", "--sweeps", "1", "--output", "--trace"},
              "--output: needs a name, not the option \"--trace\" (./--trace is a file of that name)");
  expectError({"in", "--sweeps=", "g.q", "--output", "a"}, "--sweeps: needs a number");
  expectError({"in", "--output", "a", "--sweeps"}, "--sweeps: needs a number");
  expectError({"in", "--sweeps", "--output", "a"}, "--sweeps: needs a number, not the option \"--output\"");
  expectError({"--outptu", "a"}, "unknown option --outptu, did you mean --output");
  expectError({"in", "--population=a"}, "unknown option --population, did you mean --populations");
  expectError({"in", "-output", "a"}, "unknown option -output, did you mean --output");
  expectError({"in", "--whatever", "a"}, "unknown option --whatever");
  expectError({"in", "--x\ny"}, "unknown option \"--x\\ny\"");
  expectError({"in", "--trace=false"}, "--trace: takes no value");
  expectError({"", "--sweeps", "1"}, "DOCUMENT: the name is empty");
  expectError({"--sweeps", "1", "--output", "a", "--", ""}, "DOCUMENT: the name is empty");
  expectError({"in", "--sweeps", "1", "--output", ""}, "--output: needs a name");
  expectError({"in", "--sweeps", "1", "--output="}, "--output: needs a name");
}

TEST(CommandLine, AcceptsNamesThatLookLikeOptions) {
  EXPECT_EQ(parsed({"in", "--sweeps", "0", "--output", "./--trace"}).output, "./--trace");
  EXPECT_EQ(parsed({"--sweeps=0", "--output=a=b", "--", "--in"}).document, "--in");
}

TEST(CommandLine, FailsIfItsHelpOrVersionCannotBeWritten) {
  for (const char* option : {"--help", "--version"}) {
    const int full = ::open("/dev/full", O_WRONLY);
    BatchProcess process({option}, "", full);
    ::close(full);
    const Finished finished = process.wait();
    EXPECT_EQ(finished.status, 1);
    EXPECT_EQ(finished.err, "quorvane-batch: standard output: No space left on device\n");
  }
}

TEST(CommandLine, PrintsItsVersion) {
  const Finished finished = runBatchProgram({"--version"});
  EXPECT_EQ(finished.status, 0);
  EXPECT_EQ(finished.out, "quorvane-batch " QUORVANE_VERSION "\n");
}

TEST(CommandLine, HelpNamesEveryOptionAndExitsWithZero) {
  const Finished finished = runBatchProgram({"--help"});
  EXPECT_EQ(finished.status, 0);
  EXPECT_THAT(finished.err, IsEmpty());
  for (const char* option : {"DOCUMENT", "--sweeps", "--output", "--populations", "--every", "--picture",
                             "--frames", "--scale", "--trace", "--version", "Exit status:", "Examples:"})
    EXPECT_THAT(finished.out, HasSubstr(option));
}

TEST(CommandLine, HelpFitsATerminal) {
  std::istringstream lines(runBatchProgram({"--help"}).out);
  for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), 80u) << line;
}

}  // namespace
}  // namespace quorvane
