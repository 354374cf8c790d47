#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "BatchSupport.h"
#include "DocumentSupport.h"
#include "OutputSupport.h"

namespace quorvane {

inline const std::filesystem::path kExample =
    std::filesystem::path(QUORVANE_EXAMPLES) / "growth-from-a-seed.quorvane";

/// More sweeps than any test can wait for.
inline const std::string kForever = "9000000000000000000";
/// The same with frames, whose names have six digits.
inline const std::string kEndlessFilm = "900000";

/// Ends a run that had a first signal. Signals within a second of that one count as the same.
inline void signalUntilItEnds(const Process& process, int signal) {
  constexpr std::chrono::milliseconds between{100};
  while (!process.waitFor(between)) process.signal(signal);
}

/// A folder with the sample document.
class Runner : public testing::Test {
 protected:
  Runner() { put(document_, joined(sampleLines())); }

  /// A file as messages name it.
  static std::string named(const std::filesystem::path& file) { return '"' + file.string() + '"'; }
  void expectFailure(const std::vector<std::string>& arguments, const std::string& line) const {
    const Finished finished = runBatchProgram(arguments);
    EXPECT_EQ(finished.status, 1);
    EXPECT_THAT(finished.out, testing::IsEmpty());
    EXPECT_EQ(finished.err, "quorvane-batch: " + line + "\n");
  }

  /// The frame of a film with six digits.
  static std::string frameName(std::size_t number) {
    const std::string digits = std::to_string(number);
    return "frame-" + std::string(6 - digits.size(), '0') + digits + ".png";
  }
  /// Where the rows of a run gather. At the start it is made and removed once, to see if the folder can be
  /// written to.
  std::filesystem::path partialFileOf(pid_t process, const std::string& target = "out.csv") const {
    return folder_ / ("." + target + ".quorvane-" + std::to_string(process) + ".partial");
  }

  TemporaryFolder folder_;
  const std::string document_ = (folder_ / "in.quorvane").string();
  const std::string output_ = (folder_ / "out.quorvane").string();
  const std::string populations_ = (folder_ / "out.csv").string();
  const std::string picture_ = (folder_ / "out.png").string();
};

}  // namespace quorvane
