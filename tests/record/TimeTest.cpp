#include <gtest/gtest.h>

#include "record/Time.h"

namespace quorvane {
namespace {

std::string at(std::time_t seconds) { return utcText(std::chrono::system_clock::from_time_t(seconds)); }

TEST(UtcText, IsInUtc) {
  EXPECT_EQ(at(0), "1970-01-01T00:00:00Z");
  EXPECT_EQ(at(951'782'400), "2000-02-29T00:00:00Z");
  EXPECT_EQ(at(1'800'000'001), "2027-01-15T08:00:01Z");
}

TEST(UtcText, IsRecognised) {
  for (const std::time_t seconds : {0L, 951'782'400L, 1'800'000'001L}) EXPECT_TRUE(isUtcText(at(seconds)));
  for (const char* text : {"", "today", "2026-11-22", "2026-11-22T23:40:00", "2026-11-22T23:40:00Z ",
                           "2026-13-22T23:40:00Z", "2026-02-30T23:40:00Z", "2026-11-22T24:40:00Z",
                           "2026-11-22T23:60:00Z", "2026-11-22 23:40:00Z", "26-11-22T23:40:00Z"})
    EXPECT_FALSE(isUtcText(text)) << text;
}

}  // namespace
}  // namespace quorvane
