#pragma once

#include <gtest/gtest.h>

#include <string>

#include "Statistics.h"

namespace quorvane::validation {

/// The largest accepted deviation of a measured value from the exact one, in standard errors.
inline constexpr double kBound = 5.0;

/// A test whose figures are in docs/validation.md. Every test starts with the draws of a fresh process,
/// whether it runs alone or after others.
///
/// Each check prints one row of the page's table named after the suite, and fails if the page does not have
/// that row. scripts/validation writes the rows into the page.
class ValidationTest : public testing::Test {
 protected:
  ValidationTest();

  /// The measured value lies within the bound of the exact one.
  void expectAgreement(const std::string& what, const Estimate& measured, double exact);
  /// The same for many values at once, by the largest of their deviations.
  void expectAgreement(const std::string& what, const std::string& exact, const std::string& measured,
                       double deviation);
  /// The counts agree with independent outcomes of the given probabilities.
  void expectAgreement(const std::string& what, const ChiSquared& chiSquared);

  /// The measured value lies beyond the bound of a wrong value, so the test can fail.
  void expectRejection(const std::string& wrong, const Estimate& measured, double wrongValue);
  void expectRejection(const std::string& wrong, const ChiSquared& chiSquared);

  /// The blocks are long enough for their means to be uncorrelated.
  void expectLongBlocks(const Blocks& blocks, int observable);
};

}  // namespace quorvane::validation
