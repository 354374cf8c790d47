#pragma once

#include <chrono>

#include "WindowTest.h"

namespace quorvane {

/// A window driven by a random user.
class RandomWalkTest : public WindowTest {
 protected:
  static constexpr int kSteps = 700;

  enum class Pace {
    kHasty,       ///< an action may start before the keys of the previous one have had their effect
    kRepeatable,  ///< waits for each action, so that the same seed gives the same actions in a fresh process
  };

  /// Opens an example document, or initialises a small lattice if the name is empty.
  void begin(const QString& example);

  /// Performs kSteps actions, or stops when the time is over, and fails at the first action after which the
  /// controls and the model disagree.
  void walk(unsigned seed, Pace pace, std::chrono::seconds longest = std::chrono::hours(1));

  /// Called with each action.
  virtual void acted(const QString& /*what*/) {}

  /// The final system is like any other: saved, it opens as the same.
  void expectThatTheSystemCanBeSavedAndOpened();
};

}  // namespace quorvane
