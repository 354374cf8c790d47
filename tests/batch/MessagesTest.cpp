#include <gtest/gtest.h>

#include <new>
#include <sstream>
#include <system_error>

#include "RunnerTest.h"
#include "batch/Messages.h"

namespace quorvane {
namespace {

TEST(Message, ShowsANameInQuotesOnOneLine) {
  EXPECT_EQ(inQuotes("plain name"), "\"plain name\"");
  EXPECT_EQ(inQuotes("a\nb\tc\rd\x1b[31m\x7f"), R"("a\nb\tc\rd\x1b[31m\x7f")");
  EXPECT_EQ(inQuotes("say \"x\" \\n"), R"("say \"x\" \\n")");
}

TEST(Message, ShowsUtf8UnchangedAndOtherBytesAsEscapes) {
  EXPECT_EQ(inQuotes("Gr\u00fcn \u20ac \U0001F600"), "\"Gr\u00fcn \u20ac \U0001F600\"");
  EXPECT_EQ(inQuotes("\xff\xc3"), R"("\xff\xc3")");
  EXPECT_EQ(inQuotes("\xc2\x9b"), R"("\xc2\x9b")");
  EXPECT_EQ(inQuotes("\xe2\x82"), R"("\xe2\x82")");
}

TEST(Message, ShowsInvalidUtf8AsEscapes) {
  EXPECT_EQ(inQuotes("\xe0\x80\x80"), R"("\xe0\x80\x80")");  // overlong
  EXPECT_EQ(inQuotes("\xf0\x82\x82\xac"), R"("\xf0\x82\x82\xac")");
  EXPECT_EQ(inQuotes("\xe0\x82\x9b"), R"("\xe0\x82\x9b")");          // overlong control character
  EXPECT_EQ(inQuotes("\xed\xa0\x80"), R"("\xed\xa0\x80")");          // surrogate
  EXPECT_EQ(inQuotes("\xf4\x90\x80\x80"), R"("\xf4\x90\x80\x80")");  // above U+10FFFF
  EXPECT_EQ(inQuotes("\xed\x9f\xbf\xf4\x8f\xbf\xbf"), "\"\xed\x9f\xbf\xf4\x8f\xbf\xbf\"");
}

TEST(Message, OfALibrarysFailureIsInPlainWords) {
  EXPECT_EQ(lineOf(std::bad_alloc(), "\"x\""), "\"x\": out of memory");
  EXPECT_EQ(lineOf(std::system_error(std::make_error_code(std::errc::io_error), "std::thing"), "\"x\""),
            "\"x\": Input/output error");
  EXPECT_EQ(lineOf(BatchFailure("\"y\"", "why"), "\"x\""), "\"y\": why");
}

TEST_F(Runner, SaysWhatIsWrongWithOddNamesInOneLine) {
  expectFailure({folder_ / "a\nb\x1b[31m", "--sweeps", "1", "--output", output_},
                "\"" + (folder_ / R"(a\nb\x1b[31m)").string() + "\": No such file or directory");
  EXPECT_EQ(runBatchProgram({"x", "y\nz", "--sweeps", "1", "--output", output_}).err,
            "quorvane-batch: The following argument was not expected: y\\nz (--help tells more)\n");
}

TEST_F(Runner, RefusesAnEndlessDocumentInOneLine) {
  expectFailure({"/dev/zero", "--sweeps", "1", "--output", output_},
                "\"/dev/zero\": is larger than a document can be (4000000 bytes)");
}

}  // namespace
}  // namespace quorvane
