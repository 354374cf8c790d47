#include <gtest/gtest.h>

#include "OtherPlatform.h"
#include "checkpoint/RandomBytes.h"

namespace quorvane {
namespace {

std::string bytesOf(const RandomSource::State& state) {
  ByteWriter bytes;
  transferRandom(bytes, state);
  return bytes.take();
}

RandomSource::State stateIn(const std::string& bytes) {
  RandomSource::State state;
  ByteReader reader(bytes);
  transferRandom(reader, state);
  reader.requireEnd();
  return state;
}

TEST(RandomBytes, GoOnWithTheSameDrawsFromAnyMoment) {
  for (const int seed : {1, 10, 2147483647})
    for (const int drawn : {0, 1, 30, 31, 288, 289, 290, 1000, 4711}) {
      RandomSource first;
      first.startAnew(seed);
      for (int k = 0; k < drawn; ++k) first.next();
      const auto state = first.state();
      ASSERT_TRUE(state);
      RandomSource second;
      second.startAnew(4711);
      for (int k = 0; k < drawn / 2; ++k) second.next();
      second.goOnFrom(stateIn(bytesOf(*state)));
      for (int k = 0; k < 2000; ++k)
        ASSERT_EQ(second.next(), first.next()) << seed << ' ' << drawn << ' ' << k;
    }
}

TEST(RandomBytes, TakenTwiceAreTheSameAndDrawNothing) {
  RandomSource one, other;
  one.next();
  other.next();
  EXPECT_EQ(bytesOf(*one.state()), bytesOf(*one.state()));
  EXPECT_EQ(one.next(), other.next());
}

TEST(RandomBytes, OfAnotherPlatformAreNoneAndItGoesOnWithThoseOfThisOne) {
  RandomSource here, there({&OtherPlatform<31>::srand, &OtherPlatform<31>::rand});
  EXPECT_FALSE(there.state());
  there.goOnFrom(*here.state());
  for (int k = 0; k < 1000; ++k) ASSERT_EQ(there.next(), here.next());
}

TEST(RandomBytes, WithValuesOutOfRangeAreRefused) {
  RandomSource source;
  RandomSource::State state = *source.state();
  state.selected = RandomSource::kSlots;
  EXPECT_THROW(stateIn(bytesOf(state)), CheckpointError);
  state.selected = 0;
  state.table[96] = 0x80000000;
  EXPECT_THROW(stateIn(bytesOf(state)), CheckpointError);
  state.table[96] = 0x7fffffff;
  EXPECT_NO_THROW(stateIn(bytesOf(state)));
}

}  // namespace
}  // namespace quorvane
