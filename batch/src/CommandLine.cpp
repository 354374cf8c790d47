#include "batch/CommandLine.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <cstdint>
#include <iostream>
#include <limits>
#include <string>
#include <vector>

namespace quorvane {
namespace {

constexpr std::int64_t kNoLimit = std::numeric_limits<std::int64_t>::max();

/// Only decimal digits, and a value in range: the library itself takes a number that is too large as the
/// largest one there is.
CLI::Validator wholeNumber(std::int64_t lowest, std::int64_t highest) {
  const auto check = [=](const std::string& text) -> std::string {
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool whole = error == std::errc{} && end == text.data() + text.size();
    if (whole && value >= lowest && value <= highest) return {};
    return text + " is not a whole number from " + std::to_string(lowest) +
           (highest == kNoLimit ? " upwards" : " to " + std::to_string(highest));
  };
  return {check, ""};
}

/// Two results in one file would leave only the later one.
void requireDifferentFiles(const BatchOptions& options) {
  std::vector<std::filesystem::path> seen;
  for (const auto& file : {options.output, options.populations, options.picture}) {
    if (!file) continue;
    const auto path = std::filesystem::weakly_canonical(std::filesystem::absolute(*file));
    for (const auto& other : seen)
      if (path == other) throw CLI::ValidationError(file->string(), "is asked for twice");
    seen.push_back(path);
  }
}

}  // namespace

std::variant<BatchOptions, ExitStatus> parseCommandLine(int argc, const char* const* argv) {
  BatchOptions options;
  CLI::App app("Runs a Quorvane document without a window.", "quorvane-batch");
  app.add_option("DOCUMENT", options.document, "The document to open")->required()->type_name("FILE");
  app.add_option("--sweeps", options.sweeps, "Sweeps to make")
      ->required()
      ->check(wholeNumber(0, kNoLimit))
      ->type_name("N");
  app.add_option("--output", options.output, "Save the document after the run")->type_name("FILE");
  app.add_option("--populations", options.populations, "Write the sites of each pixel type as CSV")
      ->type_name("FILE");
  app.add_option("--every", options.every, "Sweeps between rows of the CSV (1)")
      ->check(wholeNumber(1, kNoLimit))
      ->type_name("K");
  app.add_option("--picture", options.picture, "Write the lattice after the run as PNG")->type_name("FILE");
  app.add_option("--scale", options.scale,
                 "Pixels a site in the picture, 1 to " + std::to_string(kMaxScale) + " (4)")
      ->check(wholeNumber(1, kMaxScale))
      ->type_name("P");
  try {
    app.parse(argc, argv);
    requireDifferentFiles(options);
  } catch (const CLI::ParseError& error) {
    return app.exit(error, std::cout, std::cerr) == 0 ? kExitDone : kExitUsage;
  }
  return options;
}

}  // namespace quorvane
