#pragma once

#include <cstdint>

#include "study/TimeSeries.h"

/// Averages over replicas, which are independent, with errors. Sums are in the order of the replicas.
namespace quorvane {

/// An estimate with its standard error; the error is nan for a single replica.
struct Estimate {
  double value, error;
};

/// Sums of the replicas of a point.
struct ReplicaSums {
  std::int64_t n = 0;
  double mean = 0.0, square = 0.0, fourth = 0.0;

  void add(const Moments& moments);
  /// The sums without one replica, which was added.
  ReplicaSums without(const Moments& moments) const;
};

/// A function of the averages over the replicas of the mean, the mean square and the mean fourth power.
using OfAverages = double (*)(const ReplicaSums& sums, double numSites);

/// <x>.
double average(const ReplicaSums& sums, double numSites);
/// numSites (<x^2> - <x>^2), per site, for x per site: the susceptibility of an order parameter.
double susceptibility(const ReplicaSums& sums, double numSites);
/// (<x^2> - <x>^2) / numSites for x of the whole lattice, in kT: the specific heat, if x is the energy.
double specificHeat(const ReplicaSums& sums, double numSites);
/// 1 - <x^4> / (3 <x^2>^2) (Binder, Z. Phys. B 43, 119, 1981).
double binderCumulant(const ReplicaSums& sums, double numSites);

/// The delete-one jackknife of a function of averages (Efron, The Jackknife, the Bootstrap and Other
/// Resampling Plans, 1982): first all replicas are added to the sums, then each is left out in turn. For a
/// mean it is the usual standard error.
class Jackknife {
 public:
  Jackknife(OfAverages function, const ReplicaSums& sums, double numSites)
      : function_(function), sums_(sums), numSites_(numSites) {}

  void leaveOut(const Moments& moments);
  /// Once every replica was left out.
  Estimate estimate() const;

 private:
  OfAverages function_;
  ReplicaSums sums_;
  double numSites_;
  double sum_ = 0.0, squares_ = 0.0;  ///< of the differences from the value of all replicas
};

}  // namespace quorvane
