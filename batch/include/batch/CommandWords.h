#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quorvane {

enum class Takes { kNothing, kNumber, kFile };

/// An option as it is typed, like "--sweeps", and what it takes for a value.
struct OptionWord {
  std::string name;
  Takes takes;
};

/// What is wrong with the words of a command line before any of them is understood, as one line: an option
/// that does not exist, one without its value, a value where there is none, an empty name. None if nothing
/// is. options: all that exist, not empty; of equally near ones the first is suggested.
std::optional<std::string> wrongWord(const std::vector<std::string>& words,
                                     const std::vector<OptionWord>& options);

}  // namespace quorvane
