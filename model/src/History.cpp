#include <bit>
#include <cstdint>
#include <limits>

#include "model/LatticeModel.h"

namespace quorvane {
namespace {

/// Updates the traces of one type for one sweep.
class TraceUpdate {
 public:
  TraceUpdate(int type, double persistence) : type_(type), persistence_(persistence) {}

  void operator()(Relaxed<double>& trace, std::int32_t site) {
    // A look-up instead of a branch, since which sites hold the type cannot be predicted. Adding -0 changes
    // no number, including 0 and -0.
    static constexpr double gain[] = {-0.0, 1.0};
    const double updated = gain[site == type_ ? 1 : 0] + decayed(trace);
    trace = updated;
    max_ = updated > max_ ? updated : max_;
  }

  double max() const { return 1.0 > max_ ? 1.0 : max_; }

 private:
  double decayed(double trace) {
    // Denormal products take processors up to a hundred times as long. A trace without additions for
    // thousands of sweeps stays at the same denormal value, so the last product is cached.
    if (isTiny(trace)) [[unlikely]]
      return keptProduct(trace);
    return trace * persistence_;
  }

  /// True for values above 0 and up to twice the smallest normal number. Positive numbers are ordered like
  /// their bits. One comparison, because which traces are 0 cannot be predicted: 0 - 1 wraps to the largest
  /// number.
  static bool isTiny(double trace) {
    constexpr double tiny = 2 * std::numeric_limits<double>::min();
    return std::bit_cast<std::uint64_t>(trace) - 1 < std::bit_cast<std::uint64_t>(tiny);
  }

  double keptProduct(double trace) {
    if (trace != lastTrace_) {
      lastTrace_ = trace;
      lastProduct_ = trace * persistence_;
    }
    return lastProduct_;
  }

  std::int32_t type_;
  double persistence_;
  double max_ = 0.0;
  double lastTrace_ = 0.0;
  double lastProduct_ = 0.0;
};

}  // namespace

void LatticeModel::updateHistory() {
  const int imax = varImax, jmax = varJmax;
  for (int type = 0; type < varNumSiteTypes; ++type) {
    TraceUpdate update(type, varHistoryPersistenceConst[type]);
    for (int i = 0; i < imax; ++i) {
      const auto& sites = varSiteValues[i];
      auto& traces = varMobileHistory[type][i];
      for (int j = 0; j < jmax; ++j) update(traces[j], sites[j]);
    }
    varMobileHistoryMax[type] = update.max();
  }
}

}  // namespace quorvane
