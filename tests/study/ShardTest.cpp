#include <unistd.h>

#include "FileSizeLimit.h"
#include "StudyTestSupport.h"
#include "study/Shard.h"

namespace quorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const Digest kIdentity = DigestOf("a study").value();

class Shard : public testing::Test {
 protected:
  /// Records of runs 5, 2 and 9.
  Shard() {
    ShardWriter writer(folder_.path(), kIdentity);
    writer.append(5, "five");
    writer.append(2, "");
    writer.append(9, std::string(3000, 'n'));
  }

  std::filesystem::path file() const {
    const auto names = namesIn(folder_.path());
    EXPECT_EQ(names.size(), 1u);
    return folder_ / names.at(0);
  }

  /// The runs that are found, each with a content that reads back.
  std::vector<std::int64_t> runs() {
    const ShardReader reader(file(), kIdentity);
    std::vector<std::int64_t> found;
    damaged_ = reader.scan([&](const RecordPlace& place, std::string_view content) {
      EXPECT_EQ(reader.content(place), content);
      found.push_back(place.run);
    });
    return found;
  }

  TemporaryFolder folder_;
  std::int64_t damaged_ = -1;
};

TEST_F(Shard, GivesBackItsRecords) {
  EXPECT_THAT(runs(), ElementsAre(5, 2, 9));
  EXPECT_EQ(damaged_, 0);
}

TEST_F(Shard, HasARandomName) {
  ShardWriter(folder_.path(), kIdentity).append(1, "x");
  EXPECT_EQ(namesIn(folder_.path()).size(), 2u);
}

TEST_F(Shard, WithoutARecordIsNoFile) {
  const TemporaryFolder empty;
  { const ShardWriter writer(empty.path(), kIdentity); }
  EXPECT_THAT(namesIn(empty.path()), IsEmpty());
}

TEST_F(Shard, CutAtAnyByteLosesOnlyTheRecordsThatAreNotWhole) {
  const std::string whole = contentOf(file());
  const std::size_t header = 8 + 16, head = 4 + 4 + 8 + 8;
  const std::size_t first = header + head + 4, second = first + head;
  for (std::size_t length = 0; length < whole.size(); length += length < second + 40 ? 1 : 97) {
    put(file(), whole.substr(0, length));
    const std::size_t expected = length < first ? 0 : length < second ? 1 : 2;
    ASSERT_EQ(runs().size(), expected) << length;
    ASSERT_EQ(damaged_, 0) << "a torn tail is no damage";
  }
}

TEST_F(Shard, ChangedAtAnyByteLosesOneRecordAtMostAndTellsIt) {
  const std::string whole = contentOf(file());
  for (std::size_t place = 24; place < 24 + 28 + 24 + 60; ++place) {
    std::string text = whole;
    text[place] = static_cast<char>(text[place] ^ 0x41);
    put(file(), text);
    const auto found = runs();
    ASSERT_EQ(found.size(), 2u) << place;
    const bool inLast = place >= 24 + 28 + 24;
    ASSERT_EQ(damaged_, inLast ? 0 : 1) << place;
    ASSERT_EQ(found.back(), inLast ? 2 : 9) << place;
  }
}

TEST_F(Shard, FindsRecordsBehindForeignBytesOfAnyLength) {
  const std::string whole = contentOf(file());
  for (const std::size_t length :
       {std::size_t{1}, std::size_t{3}, std::size_t{5000}, (std::size_t{1} << 20) - 3}) {
    put(file(), whole.substr(0, 24 + 28) + std::string(length, 'Q') + whole.substr(24 + 28));
    EXPECT_THAT(runs(), ElementsAre(5, 2, 9)) << length;
    EXPECT_EQ(damaged_, 1);
  }
}

TEST_F(Shard, OfAnotherStudyOrOfNothingIsRefused) {
  const std::string name = '"' + file().string() + '"';
  EXPECT_EQ(studyErrorOf([&] { ShardReader(file(), DigestOf("another").value()); }),
            name + ": is a shard of another study");
  put(file(), "something else that is long enough");
  EXPECT_EQ(studyErrorOf([&] { ShardReader(file(), kIdentity); }),
            name + ": is no shard, or its beginning is damaged; move it away, and its runs are made again");
  EXPECT_EQ(studyErrorOf([&] { ShardReader(folder_ / "none", kIdentity); }),
            '"' + (folder_ / "none").string() + "\": No such file or directory");
}

TEST_F(Shard, OnAFullDiskEndsBeforeTheRecordThatFailed) {
  const TemporaryFolder other;
  ShardWriter writer(other.path(), kIdentity);
  writer.append(1, "one");
  const auto name = other / namesIn(other.path()).at(0);
  {
    const FileSizeLimit limit(100);
    EXPECT_EQ(studyErrorOf([&] { writer.append(2, std::string(200, 'x')); }),
              '"' + name.string() + "\": File too large");
  }
  writer.append(3, "three");
  const ShardReader reader(name, kIdentity);
  std::vector<std::int64_t> found;
  EXPECT_EQ(reader.scan([&](const RecordPlace& place, std::string_view) { found.push_back(place.run); }), 0);
  EXPECT_THAT(found, ElementsAre(1, 3));
}

}  // namespace
}  // namespace quorvane
