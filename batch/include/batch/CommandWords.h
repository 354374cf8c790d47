#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quorvane {

/// The first error in the words of a command line, as one line: an unknown option, an option without its
/// value, a value for an option that takes none, an empty name. Values are checked later.
std::optional<std::string> wrongWord(const std::vector<std::string>& words);

}  // namespace quorvane
