#include "ObservableList.h"

#include <algorithm>
#include <string>

#include "measure/MeasureError.h"
#include "measure/Registry.h"
#include "measure/TypeNames.h"

namespace quorvane {
namespace {

struct Entry {
  const ObservableKind* kind;
  std::vector<int> types;
  bool operator==(const Entry&) const = default;
};

std::vector<std::string_view> split(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  for (;;) {
    const auto end = text.find(separator);
    parts.push_back(text.substr(0, end));
    if (end == std::string_view::npos) return parts;
    text.remove_prefix(end + 1);
  }
}

std::string_view withoutBlanks(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string form(const ObservableKind& kind) { return std::string(kind.name) + std::string(kind.arguments); }

const ObservableKind& kindNamed(std::string_view name) {
  std::string all;
  for (const ObservableKind* kind : observableKinds()) {
    if (kind->name == name) return *kind;
    all += (all.empty() ? "" : ", ") + form(*kind);
  }
  throw MeasureError("there is no observable " + quotedOnOneLine(name) + "; there are " + all);
}

Entry entryOf(std::string_view text, const std::vector<std::string>& names) {
  if (text.empty()) throw MeasureError("an observable is missing");
  const auto parts = split(text, ':');
  Entry entry{.kind = &kindNamed(parts[0]), .types = {}};
  if (parts.size() - 1 != entry.kind->numArguments())
    throw MeasureError("the observable is written " + form(*entry.kind));
  for (std::size_t k = 1; k < parts.size(); ++k) {
    const int type = resolveType(parts[k], names);
    if (std::find(entry.types.begin(), entry.types.end(), type) != entry.types.end())
      throw MeasureError("the pixel type #" + std::to_string(type) + " stands there twice");
    entry.types.push_back(type);
  }
  return entry;
}

}  // namespace

std::vector<std::unique_ptr<Observable>> observablesOf(std::string_view list, const Snapshot& first) {
  std::vector<Entry> entries;
  for (const auto part : split(list, ',')) {
    const auto text = withoutBlanks(part);
    try {
      const Entry entry = entryOf(text, first.names);
      if (std::find(entries.begin(), entries.end(), entry) != entries.end())
        throw MeasureError("it is in the list already");
      entries.push_back(entry);
    } catch (const MeasureError& error) {
      throw MeasureError("entry " + std::to_string(entries.size() + 1) + " of the observables, " +
                         quotedOnOneLine(text) + ": " + error.what());
    }
  }
  std::vector<std::unique_ptr<Observable>> observables;
  observables.reserve(entries.size());
  for (const Entry& entry : entries) observables.push_back(entry.kind->make(first, entry.types));
  return observables;
}

}  // namespace quorvane
