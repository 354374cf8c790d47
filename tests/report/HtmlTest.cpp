#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Html.h"
#include "Page.h"

namespace quorvane {
namespace {

using testing::HasSubstr;
using testing::Not;

TEST(HtmlText, HasNoMarkupAndNoBrokenBytes) {
  EXPECT_EQ(htmlText("a < b && \"c\" > d"), "a &lt; b &amp;&amp; &quot;c&quot; &gt; d");
  EXPECT_EQ(htmlText("two\nlines é"), "two\nlines é");
  EXPECT_EQ(htmlText("\xff\x01"), "\\xff\\x01");
}

TEST(DownloadLink, HoldsTheTextItself) {
  EXPECT_EQ(
      downloadLink("a&b.csv", "x,y\n1,\"2\"\n"),
      "<a download=\"a&amp;b.csv\" href=\"data:text/csv;charset=utf-8,x,y%0A1,%222%22%0A\">a&amp;b.csv</a>");
}

TEST(LeadingComment, IsOneParagraph) {
  EXPECT_EQ(leadingComment("# The decay\n#\n# of a process.\ndocument = 1\n# not this\n"),
            "The decay of a process.");
  EXPECT_EQ(leadingComment("document = 1\n"), "");
}

TEST(ReportPage, ShowsWarningsAndEscapesEverything) {
  const StudyFacts facts{.name = "<b>",
                         .description = "a & b",
                         .studyText = "x = \"<i>\"",
                         .documentName = "<u>",
                         .documentText = "<s>",
                         .setup = {{"<p>", "<q>"}},
                         .provenance = {{"<v>", "<w>"}},
                         .warnings = {"Not <all>"}};
  const std::string page = reportPage(facts, {}, {}, {});
  for (const char* tag : {"<b>", "<i>", "<u>", "<s>", "<q>", "<v>", "<w>", "<all>"})
    EXPECT_THAT(page, Not(HasSubstr(tag)));
  EXPECT_THAT(page, HasSubstr("<strong>Not &lt;all&gt;</strong>"));
  EXPECT_THAT(page, HasSubstr("<p>a &amp; b</p>"));
}

}  // namespace
}  // namespace quorvane
