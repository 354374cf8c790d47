#pragma once

#include <algorithm>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>

#include "batch/CommandLine.h"

namespace quorvane {

/// One of the results that a run can be asked for, with all that the command line, the checks before a run
/// and the run itself need to know of it.
struct Result {
  /// Where it goes; none in a run that is not asked for it.
  std::optional<std::filesystem::path> BatchOptions::*target;
  const char* option;
  const char* help;
  enum { kFile, kFolder } kind;
  enum { kAfterRun, kDuringRun } written;
  bool showsTraces = false;         ///< pictures do
  bool mayReplaceDocument = false;  ///< only what can be opened again
};

/// All of them, in the order in which they are checked and named in messages.
std::span<const Result> allResults();

/// True if a result that fulfils a condition is asked for. The condition is a predicate of a Result that has
/// a target, or a flag of it.
template <typename Condition>
bool asksFor(const BatchOptions& options, const Condition& condition) {
  const auto results = allResults();
  return std::any_of(results.begin(), results.end(), [&](const Result& result) {
    return options.*result.target && std::invoke(condition, result);
  });
}

}  // namespace quorvane
