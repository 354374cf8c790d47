#include "batch/CommandWords.h"

#include <algorithm>
#include <numeric>
#include <string_view>
#include <utility>

#include "batch/Messages.h"

namespace quorvane {
namespace {

enum class Takes { kNothing, kNumber, kFile };

struct Option {
  std::string_view name;
  Takes takes;
};

constexpr Option kOptions[] = {{"--sweeps", Takes::kNumber},    {"--every", Takes::kNumber},
                               {"--output", Takes::kFile},      {"--picture", Takes::kFile},
                               {"--populations", Takes::kFile}, {"--frames", Takes::kFile},
                               {"--scale", Takes::kNumber},     {"--trace", Takes::kNothing},
                               {"--help", Takes::kNothing},     {"--version", Takes::kNothing}};

/// The Levenshtein distance of two words.
std::size_t distance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < a.size(); ++i) {
    std::size_t diagonal = std::exchange(row[0], i + 1);
    for (std::size_t j = 0; j < b.size(); ++j) {
      const std::size_t change = diagonal + (a[i] == b[j] ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({row[j] + 1, diagonal + 1, change});
    }
  }
  return row.back();
}

/// Quoted only if it needs escapes.
std::string plainOrQuoted(const std::string& word) {
  const std::string in = inQuotes(word);
  return in == '"' + word + '"' ? word : in;
}

std::string unknown(const std::string& word) {
  const auto nearer = [&](const Option& one, const Option& other) {
    return distance(word, one.name) < distance(word, other.name);
  };
  const Option& nearest = *std::min_element(std::begin(kOptions), std::end(kOptions), nearer);
  std::string line = "unknown option " + plainOrQuoted(word);
  if (distance(word, nearest.name) * 2 > nearest.name.size()) return line;
  return line + ", did you mean " + std::string(nearest.name);
}

/// An option's value, which may look like another option.
std::optional<std::string> wrongValue(const Option& option, const std::string* value) {
  const std::string name(option.name);
  const std::string what = option.takes == Takes::kNumber ? "a number" : "a name";
  if (!value || value->empty()) return name + ": needs " + what;
  if (option.takes == Takes::kFile && value->starts_with("-") && *value != "-")
    return name + ": needs " + what + ", not the option " + inQuotes(*value) + " (./" + *value +
           " is a file of that name)";
  if (option.takes == Takes::kNumber && value->starts_with("--"))
    return name + ": needs " + what + ", not the option " + inQuotes(*value);
  return std::nullopt;
}

const Option* findOption(std::string_view name) {
  const auto* found = std::find_if(std::begin(kOptions), std::end(kOptions),
                                   [&](const Option& option) { return option.name == name; });
  return found == std::end(kOptions) ? nullptr : found;
}

}  // namespace

std::optional<std::string> wrongWord(const std::vector<std::string>& words) {
  for (std::size_t k = 0; k < words.size(); ++k) {
    const std::string& word = words[k];
    if (word == "--help" || word == "-h" || word == "--version" || word == "--") return std::nullopt;
    if (word == "-" || !word.starts_with('-')) continue;
    const auto equals = word.find('=');
    const Option* option = findOption(word.substr(0, equals));
    if (!option) return unknown(word.substr(0, equals));
    const bool attached = equals != std::string::npos;
    const std::string after = attached ? word.substr(equals + 1) : "";
    if (option->takes == Takes::kNothing) {
      if (attached) return std::string(option->name) + ": takes no value";
      continue;
    }
    const std::string* next = k + 1 < words.size() ? &words[k + 1] : nullptr;
    if (auto wrong = wrongValue(*option, attached ? &after : next)) return wrong;
    if (!attached) ++k;
  }
  return std::nullopt;
}

}  // namespace quorvane
