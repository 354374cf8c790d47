#pragma once

#include <gtest/gtest.h>

#include <string>

#include "Statistics.h"

namespace quorvane::validation {

/// A measured value may lie this many standard errors away from the exact one.
inline constexpr double kBound = 5.0;

/// A test whose figures stand in docs/validation.md. Every test starts with the draws of a fresh process,
/// whether it runs alone or after others.
///
/// Each check prints one row of the page's table that is named for the suite, and fails where the page does
/// not have that row. scripts/validation writes the rows into the page.
class ValidationTest : public testing::Test {
 protected:
  ValidationTest();

  /// The measured value lies within the bound of the exact one.
  void expectAgreement(const std::string& what, const Estimate& measured, double exact);
  /// The same for many values at once: of their deviations, the one farthest from 0.
  void expectAgreement(const std::string& what, const std::string& exact, const std::string& measured,
                       double deviation);
  /// The counts are those of independent outcomes with the probabilities that were given.
  void expectAgreement(const std::string& what, const ChiSquared& chiSquared);

  /// The measured value lies beyond the bound of a wrong one: the test could have failed.
  void expectRejection(const std::string& wrong, const Estimate& measured, double wrongValue);
  void expectRejection(const std::string& wrong, const ChiSquared& chiSquared);

  /// The blocks are long enough for their means to have nothing in common.
  void expectLongBlocks(const Blocks& blocks, int observable);
};

}  // namespace quorvane::validation
