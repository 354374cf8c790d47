#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <string>

#include "DocumentSupport.h"

namespace quorvane {
namespace {

/// The seeds that a program gives to the C library while the command runs it.
std::string seedsGivenBy(const std::string& command) {
  const TemporaryFolder folder;
  const std::string log = (folder / "seeds").string();
  std::ofstream(log).close();
  const std::string whole = "env -u DISPLAY -u WAYLAND_DISPLAY SRAND_LOG='" + log + "' LD_PRELOAD='" +
                            SRAND_LOG_LIBRARY + "' " + command + " >'" + (folder / "said").string() +
                            "' 2>&1";
  EXPECT_NE(std::system(whole.c_str()), -1);
  return contentOf(log);
}

// Other threads, such as those of a graphics driver, may use the C library's generator later. Comparing it
// only at the first draw could mix their draws with its own. These runs end before any draw.

TEST(PlatformLook, IsTheRunnersFirstAct) {
  EXPECT_EQ(seedsGivenBy("'" QUORVANE_BATCH "' --version"), "10\n");
}

#ifdef APPLICATION
TEST(PlatformLook, IsTheApplicationsFirstAct) { EXPECT_EQ(seedsGivenBy("'" APPLICATION "'"), "10\n"); }
#endif

}  // namespace
}  // namespace quorvane
