#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "study/Statistics.h"

namespace quorvane {

/// An estimate for a column of a point.
struct EstimateKind {
  const char* name;       ///< of its column behind the observable's
  const char* errorName;  ///< of the column of its error
  OfAverages function;
};

/// The estimates that make sense for a column of an observable, the mean first.
std::vector<EstimateKind> estimatesFor(std::string_view column);

}  // namespace quorvane
