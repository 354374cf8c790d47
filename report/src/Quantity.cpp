#include "Quantity.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace quorvane {
namespace {

struct Words {
  std::string_view column, name;
  std::string_view ofTypes;  ///< behind the name; %1 and %2 stand for pixel types
  std::string_view unit;
};

constexpr std::array kColumns = {
    Words{"count", "Number of sites", " of %1", ""},
    Words{"energy", "Energy", "", "kT"},
    Words{"contacts", "Contacts", " of %1 with %2", "pairs of sites"},
    Words{"clusters", "Number of clusters", " of %1", ""},
    Words{"largest", "Largest cluster", " of %1", "sites"},
    Words{"mean", "Mean cluster", " of %1", "sites"},
    Words{"wraps", "Wrapping", " of clusters of %1", "0 to 3"},
    Words{"order", "Order", ", %1 minus %2", "per site"},
    Words{"kept", "Share of sites with their first type", "", ""},
    Words{"never", "Share of sites that never changed", "", ""},
    Words{"length", "Length", " of the structure of %1", "sites"},
};

constexpr std::array kEstimates = {
    Words{"_specific_heat", "Specific heat", "", "k per site"},
    Words{"_susceptibility", "Susceptibility", " of the order, %1 minus %2", ""},
    Words{"_binder", "Binder cumulant", " of the order, %1 minus %2", ""},
};

constexpr std::array kProfiles = {
    Words{"c", "Pair correlation", " of %1", ""},
    Words{"s", "Structure factor", " of %1", ""},
};
constexpr std::array kArguments = {
    Words{"c", "Distance", "", "sites"},
    Words{"s", "Wave number", "", "2π over the larger side"},
};

std::vector<std::string_view> partsOf(std::string_view name) {
  std::vector<std::string_view> parts;
  for (std::size_t from = 0; from <= name.size();) {
    const std::size_t end = std::min(name.find('_', from), name.size());
    parts.push_back(name.substr(from, end - from));
    from = end + 1;
  }
  return parts;
}

std::optional<int> wholeIn(std::string_view text) {
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
  return value;
}

std::string typeName(std::string_view index, const std::vector<std::string>& types) {
  const auto type = wholeIn(index);
  if (!type || *type < 0 || *type >= std::ssize(types)) return std::string(index);
  return types[static_cast<std::size_t>(*type)];
}

Quantity filledIn(const Words& words, const std::vector<std::string_view>& parts,
                  const std::vector<std::string>& types) {
  const std::string name(words.name);
  Quantity quantity{.title = name, .name = name, .unit = std::string(words.unit)};
  for (std::size_t k = 0; k < words.ofTypes.size(); ++k) {
    if (words.ofTypes[k] != '%') {
      quantity.title += words.ofTypes[k];
      continue;
    }
    const auto part = static_cast<std::size_t>(words.ofTypes[++k] - '0');
    if (part < parts.size()) quantity.title += typeName(parts[part], types);
  }
  return quantity;
}

/// Of a column that has no words.
Quantity unknown(std::string_view column) {
  return {.title = std::string(column), .name = std::string(column), .unit = {}};
}

template <std::size_t size>
const Words* wordsOf(const std::array<Words, size>& all, std::string_view column) {
  const auto found =
      std::find_if(all.begin(), all.end(), [&](const Words& words) { return words.column == column; });
  return found == all.end() ? nullptr : &*found;
}

}  // namespace

Quantity quantityOf(std::string_view column, const std::vector<std::string>& types) {
  for (const Words& words : kEstimates)
    if (column.ends_with(words.column))
      return filledIn(words, partsOf(column.substr(0, column.size() - words.column.size())), types);
  constexpr std::string_view mean = "_mean";
  const std::string_view name =
      column.ends_with(mean) ? column.substr(0, column.size() - mean.size()) : column;
  const auto parts = partsOf(name);
  if (const Words* words = wordsOf(kColumns, parts.front())) return filledIn(*words, parts, types);
  return unknown(name);
}

std::optional<ProfileColumn> profileColumn(std::string_view column) {
  const auto parts = partsOf(column);
  if (parts.size() < 3 || !wordsOf(kProfiles, parts[0])) return std::nullopt;
  const auto argument = wholeIn(parts[2]);
  if (!argument) return std::nullopt;
  return ProfileColumn{.function = std::string(parts[0]).append("_").append(parts[1]), .argument = *argument};
}

Quantity profileQuantity(std::string_view function, const std::vector<std::string>& types) {
  const auto parts = partsOf(function);
  const Words* words = wordsOf(kProfiles, parts.front());
  return words ? filledIn(*words, parts, types) : unknown(function);
}

Quantity profileArgument(std::string_view function) {
  const Words* words = wordsOf(kArguments, partsOf(function).front());
  return words ? filledIn(*words, {}, {}) : unknown(function);
}

}  // namespace quorvane
