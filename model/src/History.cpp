#include <bit>
#include <cstdint>

#include "model/LatticeModel.h"

namespace quorvane {
namespace {

/// Updates the traces of one type for one sweep.
class TraceUpdate {
 public:
  TraceUpdate(int type, double persistence) : type_(type), persistence_(persistence) {}

  /// Without checks denormal traces take processors up to a hundred times as long.
  void unchecked(Relaxed<double>& trace, std::int32_t site) { put(trace, site, trace * persistence_); }

  /// Notes small traces, and keeps the last product with one: a trace without additions for thousands of
  /// sweeps stays at the same denormal value.
  void checked(Relaxed<double>& trace, std::int32_t site) {
    const double before = trace;
    const bool small = isSmall(before);
    foundSmall_ |= small;
    put(trace, site, small ? keptProduct(before) : before * persistence_);
  }

  double max() const { return 1.0 > max_ ? 1.0 : max_; }
  bool foundSmall() const { return foundSmall_; }

 private:
  void put(Relaxed<double>& trace, std::int32_t site, double decayed) {
    // A look-up instead of a branch, since which sites hold the type cannot be predicted. Adding -0 changes
    // no number, including 0 and -0.
    static constexpr double gain[] = {-0.0, 1.0};
    const double updated = gain[site == type_ ? 1 : 0] + decayed;
    trace = updated;
    max_ = updated > max_ ? updated : max_;
  }

  /// True for values above 0 that may become denormal before the next check. Positive numbers are ordered
  /// like their bits. One comparison, because which traces are 0 cannot be predicted: 0 - 1 wraps to the
  /// largest number.
  static bool isSmall(double trace) {
    return std::bit_cast<std::uint64_t>(trace) - 1 < std::bit_cast<std::uint64_t>(1e-150);
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
  bool foundSmall_ = false;
};

/// The sweeps until a type is checked again after no small trace was found.
constexpr int kSweepsBetweenChecks = 64;

}  // namespace

void LatticeModel::updateHistory() {
  const int imax = varImax, jmax = varJmax;
  const auto updateAll = [&](int type, auto&& updateOne) {
    for (int i = 0; i < imax; ++i) {
      const auto& sites = varSiteValues[i];
      auto& traces = varMobileHistory[type][i];
      for (int j = 0; j < jmax; ++j) updateOne(traces[j], sites[j]);
    }
  };
  for (int type = 0; type < varNumSiteTypes; ++type) {
    TraceUpdate update(type, varHistoryPersistenceConst[type]);
    const int unchecked = uncheckedTraceUpdates_[type];
    if (unchecked > 0) {
      updateAll(type, [&](auto& trace, std::int32_t site) { update.unchecked(trace, site); });
      uncheckedTraceUpdates_[type] = unchecked - 1;
    } else {
      updateAll(type, [&](auto& trace, std::int32_t site) { update.checked(trace, site); });
      if (!update.foundSmall()) uncheckedTraceUpdates_[type] = kSweepsBetweenChecks;
    }
    varMobileHistoryMax[type] = update.max();
  }
}

void LatticeModel::paintSiteAs(int i, int j, int type) {
  varSiteValues[i][j] = type;
  varMobileHistory[type][i][j] = varMobileHistoryMax[type];
  for (int other = 0; other < varNumSiteTypes; ++other)
    if (other != type) varMobileHistory[other][i][j] = 0.0;
}

}  // namespace quorvane
