#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "checkpoint/Bytes.h"

namespace quorvane {
namespace {

using testing::ElementsAre;

TEST(Bytes, ComeBackAsTheyWere) {
  ByteWriter out;
  out.value(std::int64_t{-2});
  out.value(std::uint32_t{0xfedcba98});
  out.value(true);
  out.value(-0.0);
  out.value(std::numeric_limits<double>::denorm_min());
  out.value(std::string("a\0b", 3));
  out.value(std::filesystem::path("/a b"));
  out.value(std::optional<std::filesystem::path>());
  out.value(std::array<std::uint8_t, 2>{1, 2});
  out.list(std::vector<std::string>{"x", "yz"}, [](auto& bytes, auto& text) { bytes.value(text); });

  ByteReader in(out.bytes());
  std::int64_t whole = 0;
  std::uint32_t word = 0;
  bool flag = false;
  double zero = 1.0, small = 0.0;
  std::string text;
  std::filesystem::path path;
  std::optional<std::filesystem::path> none = "x";
  std::array<std::uint8_t, 2> array = {};
  std::vector<std::string> list;
  in.value(whole);
  in.value(word);
  in.value(flag);
  in.value(zero);
  in.value(small);
  in.value(text);
  in.value(path);
  in.value(none);
  in.value(array);
  in.list(list, [](auto& bytes, auto& element) { bytes.value(element); });
  in.requireEnd();
  EXPECT_EQ(whole, -2);
  EXPECT_EQ(word, 0xfedcba98);
  EXPECT_TRUE(flag);
  EXPECT_TRUE(zero == 0.0 && std::signbit(zero));
  EXPECT_EQ(small, std::numeric_limits<double>::denorm_min());
  EXPECT_EQ(text, std::string("a\0b", 3));
  EXPECT_EQ(path, "/a b");
  EXPECT_FALSE(none);
  EXPECT_THAT(array, ElementsAre(1, 2));
  EXPECT_THAT(list, ElementsAre("x", "yz"));
}

TEST(Bytes, HaveTheLowestFirst) {
  ByteWriter out;
  out.value(std::uint32_t{0x01020304});
  out.value(std::string("AB"));
  EXPECT_EQ(out.bytes(), std::string("\4\3\2\1\2\0\0\0\0\0\0\0AB", 14));
}

TEST(Bytes, ThatEndEarlyAreRefusedAtEveryLength) {
  ByteWriter out;
  out.value(std::string("abc"));
  out.value(1.5);
  for (std::size_t size = 0; size < out.bytes().size(); ++size) {
    ByteReader in(std::string_view(out.bytes()).substr(0, size));
    std::string text;
    double number = 0.0;
    EXPECT_THROW((in.value(text), in.value(number)), CheckpointError) << size;
  }
}

TEST(Bytes, RefuseLengthsBeyondTheEndWithoutReservingThem) {
  ByteWriter out;
  out.value(std::numeric_limits<std::uint64_t>::max());
  std::string text;
  EXPECT_THROW(ByteReader(out.bytes()).value(text), CheckpointError);
  std::vector<std::string> list;
  EXPECT_THROW(ByteReader(out.bytes()).list(list, [](auto& bytes, auto& element) { bytes.value(element); }),
               CheckpointError);
  EXPECT_LT(list.capacity(), 2u);
}

TEST(Bytes, RefuseWhatCannotBe) {
  bool flag = false;
  EXPECT_THROW(ByteReader(std::string(1, '\2')).value(flag), CheckpointError);
  int number = 0;
  ByteWriter out;
  out.value(7);
  EXPECT_THROW(ByteReader(out.bytes()).within(number, 0, 6), CheckpointError);
  EXPECT_THROW(ByteReader(out.bytes()).within(number, 8, 9), CheckpointError);
  EXPECT_NO_THROW(ByteReader(out.bytes()).within(number, 7, 7));
  EXPECT_THROW(ByteReader(out.bytes()).requireEnd(), CheckpointError);
}

}  // namespace
}  // namespace quorvane
