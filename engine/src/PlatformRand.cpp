#include "engine/PlatformRand.h"

#include <algorithm>
#include <array>

#include "engine/AdditiveFeedback.h"

namespace quorvane {
namespace {

/// Enough for every word of the state to pass through the feedback many times.
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

/// True if the values occur in the expected sequence in this order, possibly with gaps: values that another
/// thread has drawn.
bool areExpectedWithGaps(const Stretch& values, std::int32_t seed) {
  // Tolerates about five hundred draws of other threads between two of ours. A sample with more fails; the
  // next one may succeed.
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
  // Another generator gives the same sample each time, while samples disturbed by other threads differ. So
  // samples are taken until one is recognised or repeats.
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
