#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quorvane {

enum class Takes { kNothing, kNumber, kText, kFile };

/// An option, such as "--sweeps", and the kind of its value.
struct OptionWord {
  std::string name;
  Takes takes;
};

/// The first error in the words of a command line, as one line: an unknown option, an option without its
/// value, a value for an option that takes none, an empty name. Values are checked later. options: all
/// options, not empty; of equally near ones the first is suggested.
std::optional<std::string> wrongWord(const std::vector<std::string>& words,
                                     const std::vector<OptionWord>& options);

}  // namespace quorvane
