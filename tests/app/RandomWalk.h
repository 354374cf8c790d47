#pragma once

#include <chrono>

#include "WindowTest.h"

namespace quorvane {

/// A window in the hands of a random user.
class RandomWalkTest : public WindowTest {
 protected:
  static constexpr int kSteps = 700;

  enum class Pace {
    kHasty,       ///< an act may come while the keys of the one before it are still to have their effect
    kRepeatable,  ///< each act is waited for, so that the same seed makes the same acts in a fresh process
  };

  /// Opens an example document, or initialises a small lattice where the name is empty.
  void begin(const QString& example);

  /// Lets the user act kSteps times, or until the time is over, and fails at the first act after which the
  /// controls and the model disagree.
  void walk(unsigned seed, Pace pace, std::chrono::seconds longest = std::chrono::hours(1));

  /// Called with each act that is done.
  virtual void acted(const QString& /*what*/) {}

  /// What a walk ends in is a system like any other: saved, it opens as itself.
  void expectThatTheSystemCanBeSavedAndOpened();
};

}  // namespace quorvane
