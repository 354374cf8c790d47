#pragma once

#include <algorithm>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string_view>

#include "batch/CommandLine.h"

namespace quorvane {

/// One of the possible results of a run, with everything that the command line, the checks before a run and
/// the run itself need to know about it.
struct Result {
  /// The option with its path; none if the result is not requested.
  std::optional<std::filesystem::path> BatchOptions::*target;
  const char* option;
  const char* help;
  enum { kFile, kFolder } kind;
  enum { kAfterRun, kDuringRun, kAfterAllOthers } written;
  bool showsTraces = false;         ///< pictures do
  bool mayBeStream = true;          ///< standard output, for a file
  bool mayReplaceDocument = false;  ///< only what can be opened again
};

/// All results, in the order of checks and messages.
std::span<const Result> allResults();

/// The result with an option; none if it is the option of no result.
const Result* resultOf(std::string_view option);

/// True if a result that satisfies a condition is requested. condition: a predicate of a Result, or a flag of
/// it.
template <typename Condition>
bool asksFor(const BatchOptions& options, const Condition& condition) {
  const auto results = allResults();
  return std::any_of(results.begin(), results.end(), [&](const Result& result) {
    return options.*result.target && std::invoke(condition, result);
  });
}

}  // namespace quorvane
