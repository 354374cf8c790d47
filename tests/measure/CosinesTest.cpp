#include <gtest/gtest.h>

#include <cmath>

#include "Cosines.h"
#include "engine/Limits.h"

namespace quorvane {
namespace {

TEST(Cosines, AreThoseOfTheCLibraryButForRounding) {
  // That of the standard library has only the precision of a double in an old libc++.
  constexpr long double pi = 3.141592653589793238462643L;
  for (int n = 1; n <= kMaxSide; ++n) {
    const auto cosines = cosinesOfATurn(n);
    ASSERT_EQ(cosines.size(), static_cast<std::size_t>(n));
    // An angle of a whole turn in double precision would be off by more than the cosines are.
    for (int k = 0; k < n; ++k)
      EXPECT_NEAR(cosines[static_cast<std::size_t>(k)], static_cast<double>(std::cos(2.0L * pi * k / n)),
                  2.5e-16)
          << k << " of " << n;
  }
}

TEST(Cosines, AreExactAtQuartersOfATurn) {
  for (int n = 4; n <= kMaxSide; n += 4) {
    const auto cosines = cosinesOfATurn(n);
    const auto quarter = static_cast<std::size_t>(n) / 4;
    EXPECT_EQ(cosines[0], 1.0);
    EXPECT_EQ(cosines[quarter], 0.0);
    EXPECT_EQ(cosines[2 * quarter], -1.0);
    EXPECT_EQ(cosines[3 * quarter], 0.0);
  }
}

}  // namespace
}  // namespace quorvane
