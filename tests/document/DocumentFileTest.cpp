#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>

#include "DocumentSupport.h"
#include "document/DocumentFile.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::StartsWith;

/// The largest legal document, with the longest names.
std::string largestDocument() {
  const std::string name(kMaxNameLength, 'n'), real = "-1" + std::string(308, '0') + ".0000000000";
  Lines lines = {"256", "256", "10"};
  lines.resize(3 + 256 * 256, "9");
  for (int t = 0; t < kMaxPixelTypes; ++t) {
    for (const std::string& line : {name, std::string("-2147483648"), std::string("9")})
      lines.push_back(line);
    lines.insert(lines.end(), 6, real);
  }
  lines.push_back(std::to_string(kMaxRules));
  for (int r = 0; r < kMaxRules; ++r)
    for (const std::string& line :
         {name, std::string("0"), std::string("0"), std::string("3"), std::string("-1"), std::string("-1"),
          real, std::string("-2147483648"), std::string("9")})
      lines.push_back(line);
  return joined(lines);
}

TEST(DocumentFile, OfTheLargestLegalDocumentIsFarBelowTheLimit) {
  const std::string text = largestDocument();
  EXPECT_LT(text.size(), kMaxDocumentBytes / 3);
  EXPECT_EQ(readDocument(*freshModel(), text).status, OpenStatus::kOpened);
}

OpenResult open(const fs::path& path) {
  const auto model = freshModel();
  const std::string before = stateOf(*model);
  const OpenResult result = openDocument(*model, path);
  EXPECT_EQ(stateOf(*model), before);
  EXPECT_EQ(result.status, OpenStatus::kUnreadable);
  EXPECT_EQ(result.message, kLogNoLines);
  return result;
}

TEST(DocumentFile, ThatIsTooLargeIsRefusedBeforeItIsRead) {
  const TemporaryFolder folder;
  std::ofstream(folder / "large") << joined(sampleLines());
  fs::resize_file(folder / "large", kMaxDocumentBytes + 1);
  EXPECT_EQ(open(folder / "large").reason, "is larger than a document can be (4000000 bytes)");
  // A sparse file of a terabyte.
  fs::resize_file(folder / "large", std::uintmax_t{1} << 40);
  EXPECT_EQ(open(folder / "large").reason, "is larger than a document can be (4000000 bytes)");
}

TEST(DocumentFile, AtTheLimitIsRead) {
  const TemporaryFolder folder;
  std::string text = joined(sampleLines());
  text.resize(kMaxDocumentBytes, '\n');
  std::ofstream(folder / "file") << text;
  EXPECT_EQ(openDocument(*freshModel(), folder / "file").status, OpenStatus::kOpened);
  EXPECT_EQ(readDocument(*freshModel(), text + "\n").status, OpenStatus::kUnreadable);
}

TEST(DocumentFile, ThatIsAPipeOrADeviceIsRefusedWithoutWaiting) {
  const TemporaryFolder folder;
  ASSERT_EQ(::mkfifo((folder / "fifo").c_str(), 0600), 0);
  EXPECT_EQ(open(folder / "fifo").reason, "is not a regular file");
  EXPECT_EQ(open("/dev/zero").reason, "is not a regular file");
}

TEST(DocumentFile, ThatNeverEndsIsReadOnlyUpToTheLimit) {
  std::string text;
  EXPECT_EQ(readDocumentFile("/dev/zero", DocumentSource::kAnything, text), std::errc::file_too_large);
  EXPECT_LT(text.size(), kMaxDocumentBytes + (1 << 17));
}

TEST(DocumentFile, ThatCannotBeReadHasItsOwnReason) {
  const TemporaryFolder folder;
  std::ofstream(folder / "file") << "1\n2\nGr\xc3\xbcn\n";
  EXPECT_EQ(open(folder / "missing").reason, "No such file or directory");
  EXPECT_EQ(open(folder.path()).reason, "Is a directory");
  EXPECT_EQ(open(folder / "file/file").reason, "Not a directory");
  EXPECT_EQ(open(folder / std::string(256, 'n')).reason, "File name too long");
  EXPECT_EQ(open(folder / "file").reason, "line 3, column 3: a character that is not ASCII");
}

TEST(DocumentFile, AcceptsNamesUpToTheLimitAndReportsTheLineOfALongerOne) {
  const std::string longest(kMaxNameLength, 'n');
  EXPECT_EQ(readDocument(*freshModel(), joined(sampleWith(kFirstType, longest))).status, OpenStatus::kOpened);
  const OpenResult type = readDocument(*freshModel(), joined(sampleWith(kFirstType, longest + "n")));
  EXPECT_EQ(type.status, OpenStatus::kRefused);
  EXPECT_EQ(type.reason, "line 10: name of pixel type 0 must have 10000 characters at most, not 10001");
  const OpenResult rule = readDocument(*freshModel(), joined(sampleWith(kFirstRule, longest + "n")));
  EXPECT_THAT(rule.reason, StartsWith("line 29: name of rule 0 must have"));
}

TEST(DocumentFile, IsNotSavedWithANameThatCouldNotBeOpenedAgain) {
  const TemporaryFolder folder;
  const auto model = freshModel();
  ASSERT_EQ(readDocument(*model, joined(sampleLines())).status, OpenStatus::kOpened);
  model->setPixelName(1, std::string(kMaxNameLength + 1, 'n'));
  const SaveResult result = saveDocument(*model, folder / "file");
  EXPECT_FALSE(result.saved);
  EXPECT_THAT(result.reason, HasSubstr("more than 10000 characters (line 19 of the document)"));
  EXPECT_FALSE(fs::exists(folder / "file"));
}

TEST(DocumentFile, IsNotSavedToAPipeWithoutAReader) {
  const TemporaryFolder folder;
  ASSERT_EQ(::mkfifo((folder / "fifo").c_str(), 0600), 0);
  const SaveResult result = saveDocument(*freshModel(), folder / "fifo");
  EXPECT_FALSE(result.saved);
  EXPECT_EQ(result.reason, "nobody reads from it");
}

}  // namespace
}  // namespace quorvane
