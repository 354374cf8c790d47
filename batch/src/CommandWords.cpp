#include "batch/CommandWords.h"

#include <algorithm>
#include <numeric>
#include <string_view>
#include <utility>

#include "batch/Messages.h"

namespace quorvane {
namespace {

using Options = std::vector<OptionWord>;

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

std::string unknown(const std::string& word, const Options& options) {
  const auto nearer = [&](const OptionWord& one, const OptionWord& other) {
    return distance(word, one.name) < distance(word, other.name);
  };
  const OptionWord& nearest = *std::min_element(options.begin(), options.end(), nearer);
  std::string line = "unknown option " + plainOrQuoted(word);
  if (distance(word, nearest.name) * 2 > nearest.name.size()) return line;
  return line + ", did you mean " + nearest.name;
}

/// The error in an option's value, which may look like another option.
std::optional<std::string> wrongValue(const OptionWord& option, const std::string* value) {
  const std::string& name = option.name;
  const std::string what = option.takes == Takes::kNumber ? "a number"
                           : option.takes == Takes::kText ? "a value"
                                                          : "a name";
  if (!value || value->empty()) return name + ": needs " + what;
  if (option.takes == Takes::kFile && value->starts_with("-") && *value != "-")
    return name + ": needs " + what + ", not the option " + inQuotes(*value) + " (./" + *value +
           " is a file of that name)";
  if (option.takes != Takes::kFile && value->starts_with("--"))
    return name + ": needs " + what + ", not the option " + inQuotes(*value);
  return std::nullopt;
}

const OptionWord* findOption(const Options& options, std::string_view name) {
  const auto found = std::find_if(options.begin(), options.end(),
                                  [&](const OptionWord& option) { return option.name == name; });
  return found == options.end() ? nullptr : &*found;
}

}  // namespace

std::optional<std::string> wrongWord(const std::vector<std::string>& words, const Options& options) {
  for (std::size_t k = 0; k < words.size(); ++k) {
    const std::string& word = words[k];
    if (word == "--help" || word == "-h" || word == "--version" || word == "--") return std::nullopt;
    if (word == "-" || !word.starts_with('-')) continue;
    const auto equals = word.find('=');
    const OptionWord* option = findOption(options, word.substr(0, equals));
    if (!option) return unknown(word.substr(0, equals), options);
    const bool attached = equals != std::string::npos;
    const std::string after = attached ? word.substr(equals + 1) : "";
    if (option->takes == Takes::kNothing) {
      if (attached) return option->name + ": takes no value";
      continue;
    }
    const std::string* next = k + 1 < words.size() ? &words[k + 1] : nullptr;
    if (auto wrong = wrongValue(*option, attached ? &after : next)) return wrong;
    if (!attached) ++k;
  }
  return std::nullopt;
}

}  // namespace quorvane
