#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <variant>

namespace quorvane {

/// Exit statuses of quorvane-batch.
enum ExitStatus : int {
  kExitDone = 0,
  kExitFailed = 1,  ///< the run or a file failed
  kExitUsage = 2,   ///< the command line is wrong
};

/// What the user asked for.
struct BatchOptions {
  std::filesystem::path document;
  std::int64_t sweeps = 0;                           ///< 0 or more
  std::optional<std::filesystem::path> output;       ///< the document after the run
  std::optional<std::filesystem::path> populations;  ///< sites per type as CSV
  std::int64_t every = 1;                            ///< sweeps between rows of the CSV, 1 or more
  std::optional<std::filesystem::path> picture;      ///< the lattice after the run as PNG
  int scale = 4;                                     ///< pixels a site in the picture, 1 to kMaxScale
};

inline constexpr int kMaxScale = 32;

/// The options of a command line, or the status to exit with if there is nothing to run: kExitDone after
/// --help, else kExitUsage. Writes help to standard output and what is wrong to standard error.
std::variant<BatchOptions, ExitStatus> parseCommandLine(int argc, const char* const* argv);

}  // namespace quorvane
