#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Process.h"

namespace quorvane {
namespace {

/// The seeds that a program gives to the C library.
std::string seedsGivenBy(const std::string& program, const std::vector<std::string>& arguments) {
  const TemporaryFolder folder;
  const std::string log = (folder / "seeds").string();
  put(log, "");
  std::vector<std::string> all = {"-u",
                                  "DISPLAY",
                                  "-u",
                                  "WAYLAND_DISPLAY",
                                  "SRAND_LOG=" + log,
                                  std::string("LD_PRELOAD=") + SRAND_LOG_LIBRARY,
                                  program};
  all.insert(all.end(), arguments.begin(), arguments.end());
  run("/usr/bin/env", all);
  return contentOf(log);
}

// Other threads, such as those of a graphics driver, may use the C library's generator later. Comparing it
// only at the first draw could mix their draws with its own. These runs end before any draw.

TEST(PlatformLook, IsTheFirstActionOfTheRunner) {
  EXPECT_EQ(seedsGivenBy(QUORVANE_BATCH, {"--version"}), "10\n");
}

#ifdef APPLICATION
TEST(PlatformLook, IsTheFirstActionOfTheApplication) { EXPECT_EQ(seedsGivenBy(APPLICATION, {}), "10\n"); }
#endif

}  // namespace
}  // namespace quorvane
