#include "PointEstimates.h"

namespace quorvane {

std::vector<EstimateKind> estimatesFor(std::string_view column) {
  std::vector<EstimateKind> kinds{{"_mean", "_error", average}};
  if (column == "energy") kinds.push_back({"_specific_heat", "_specific_heat_error", specificHeat});
  if (column.substr(0, 6) == "order_") {
    kinds.push_back({"_susceptibility", "_susceptibility_error", susceptibility});
    kinds.push_back({"_binder", "_binder_error", binderCumulant});
  }
  return kinds;
}

}  // namespace quorvane
