#include "engine/PlatformRand.h"

#include <algorithm>
#include <array>

#include "engine/AdditiveFeedback.h"

namespace quorvane {
namespace {

/// More than enough for every word of the state to have gone through the feedback many times.
using Stretch = std::array<std::uint32_t, 2000>;

Stretch drawStretch(const PlatformRand& platform, std::int32_t seed) {
  Stretch values;
  platform.srand(static_cast<unsigned>(seed));
  for (auto& value : values) value = static_cast<std::uint32_t>(platform.rand());
  return values;
}

Stretch expectedStretch(std::int32_t seed) {
  Stretch values;
  AdditiveFeedback generator;
  generator.seed(seed);
  for (auto& value : values) value = generator.next();
  return values;
}

/// True if the values stand in the expected sequence in their order, though with others between them: those
/// that another thread has drawn.
bool areExpectedWithGaps(const Stretch& values, std::int32_t seed) {
  // Room for about five hundred draws of other threads for each of ours. A stretch in which they make more
  // does not count; the next one may.
  constexpr int most = 1 << 20;
  AdditiveFeedback generator;
  generator.seed(seed);
  auto next = values.begin();
  for (int k = 0; k < most && next != values.end(); ++k)
    if (generator.next() == *next) ++next;
  return next == values.end();
}

}  // namespace

bool yieldsAdditiveFeedback(const PlatformRand& platform, std::int32_t seed) {
  // A platform's own stretch is the same each time. One that other threads have drawn from differs from one
  // time to the next, so stretches are drawn until it is clear which of the two it is.
  constexpr int mostStretches = 16;
  constexpr int undisturbed = 5;
  const Stretch expected = expectedStretch(seed);
  Stretch before = {};
  int alike = 0;
  for (int stretch = 0; stretch < mostStretches; ++stretch) {
    const Stretch now = drawStretch(platform, seed);
    if (now == expected) return true;
    alike = now == before ? alike + 1 : 1;
    if (alike == undisturbed) return false;
    if (stretch > 0 && alike == 1 && areExpectedWithGaps(now, seed)) return true;
    before = now;
  }
  return false;
}

}  // namespace quorvane
