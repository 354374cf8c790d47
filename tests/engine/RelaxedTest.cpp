#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>
#include <thread>

#include "engine/Relaxed.h"

namespace quorvane {
namespace {

TEST(Relaxed, StartsAtZero) {
  Relaxed<int> whole;
  Relaxed<double> reals[3];
  EXPECT_EQ(whole, 0);
  for (const auto& real : reals) EXPECT_EQ(real, 0.0);
}

TEST(Relaxed, CopiesTheValueOfAnother) {
  Relaxed<int> a = 7, b;
  b = a;
  const Relaxed<int> copy(b);
  a = 8;
  EXPECT_EQ(b, 7);
  EXPECT_EQ(copy, 7);
}

TEST(Relaxed, IsAsLargeAsItsValue) {
  EXPECT_EQ(sizeof(Relaxed<std::int32_t>), sizeof(std::int32_t));
  EXPECT_EQ(sizeof(Relaxed<double>), sizeof(double));
}

TEST(Relaxed, AReaderSeesOneOfTheValuesThatAnotherThreadWrites) {
  Relaxed<double> value = 1.0 / 3.0;
  std::atomic<bool> done{false};
  std::thread writer([&] {
    for (int k = 0; k < 200'000; ++k) value = k % 2 == 0 ? -1e300 : 1.0 / 3.0;
    done = true;
  });
  int strange = 0;
  while (!done) {
    const double seen = value;
    if (seen != -1e300 && seen != 1.0 / 3.0) ++strange;
  }
  writer.join();
  EXPECT_EQ(strange, 0);
}

}  // namespace
}  // namespace quorvane
