#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "measure/Observable.h"

namespace quorvane {

/// A kind of observable, as the list of observables and its help know it.
struct ObservableKind {
  std::string_view name;        ///< in the list
  std::string_view arguments;   ///< the pixel types after the name, as ":a:b"; empty if there are none
  std::string_view columns;     ///< their names, for the help
  std::string_view definition;  ///< a sentence and a formula
  std::string_view paper;       ///< where the definition or the method is from; empty if it needs none
  std::string_view cost;        ///< order of the time of a row of N sites
  /// Makes one for snapshots like the first. types: one for each argument, all different.
  std::unique_ptr<Observable> (*make)(const Snapshot& first, std::span<const int> types);

  std::size_t numArguments() const;
};

/// All kinds, in the order of the help.
std::span<const ObservableKind* const> observableKinds();

/// The help about all kinds, in lines of at most 80 characters, the last one ended too.
std::string observablesHelp();

}  // namespace quorvane
