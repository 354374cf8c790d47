#pragma once

#include <chrono>

#include "WindowTest.h"

namespace quorvane {

/// A window in the hands of a random user.
class RandomWalkTest : public WindowTest {
 protected:
  static constexpr int kSteps = 700;

  /// Opens an example document, or initialises a small lattice where the name is empty.
  void begin(const QString& example);

  /// Lets the user act kSteps times, or until the time is over, and fails at the first act after which the
  /// controls and the model disagree. The same seed makes the same acts in a fresh process.
  void walk(unsigned seed, std::chrono::seconds longest = std::chrono::hours(1));

  /// What a walk ends in is a system like any other: saved, it opens as itself.
  void expectThatTheSystemCanBeSavedAndOpened();
};

}  // namespace quorvane
