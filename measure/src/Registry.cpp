#include "measure/Registry.h"

#include <algorithm>
#include <array>

#include "measure/MeasureError.h"

namespace quorvane {

// Written by CMake from the list of observables.
#define QUORVANE_OBSERVABLE(name) extern const ObservableKind k##name;
#include "Observables.inc"
#undef QUORVANE_OBSERVABLE

namespace {

constexpr const ObservableKind* kObservableKinds[] = {
#define QUORVANE_OBSERVABLE(name) &k##name,
#include "Observables.inc"
#undef QUORVANE_OBSERVABLE
};

constexpr std::size_t kHelpWidth = 80;

/// Appends a text as a paragraph whose lines begin with the indent; the first one with the label instead.
void appendParagraph(std::string& help, std::string_view label, std::string_view text) {
  constexpr std::size_t indent = 14;
  std::string line(4, ' ');
  line += label;
  line.resize(std::max(indent, line.size() + 1), ' ');
  bool atStart = true;
  while (!text.empty()) {
    const auto word = text.substr(0, text.find(' '));
    text.remove_prefix(std::min(text.size(), word.size() + 1));
    if (!atStart && line.size() + 1 + word.size() > kHelpWidth) {
      help += line + '\n';
      line.assign(indent, ' ');
      atStart = true;
    }
    if (!atStart) line += ' ';
    line += word;
    atStart = false;
  }
  help += line + '\n';
}

}  // namespace

void Observable::restore(std::string_view state) {
  if (!state.empty()) throw MeasureError("an observable that keeps nothing has a stored state");
}

std::size_t ObservableKind::numArguments() const {
  return static_cast<std::size_t>(std::count(arguments.begin(), arguments.end(), ':'));
}

std::span<const ObservableKind* const> observableKinds() { return kObservableKinds; }

std::string observablesHelp() {
  std::string help =
      "Observables, to be written as a list with commas. A pixel type is given by its\n"
      "name, its index or # and its index. N is the number of sites. What is not\n"
      "defined, such as a mean over nothing, is nan. The cost is how the time of a row\n"
      "grows.\n";
  for (const ObservableKind* kind : kObservableKinds) {
    help.append("\n").append(kind->name).append(kind->arguments).append("\n");
    appendParagraph(help, "columns", kind->columns);
    appendParagraph(help, "value", kind->definition);
    if (!kind->paper.empty()) appendParagraph(help, "see", kind->paper);
    appendParagraph(help, "cost", kind->cost);
  }
  return help;
}

}  // namespace quorvane
