// One walk of the window's random user, with the seed in QUORVANE_SEED, for at most the seconds in
// QUORVANE_SECONDS; the seed also decides how the walk begins. Each walk is a process of its own, because the
// random sequence continues from walk to walk.
#include <QDir>
#include <iostream>

#include "RandomWalk.h"

namespace quorvane {
namespace {

/// An example document, or none.
QString startOf(unsigned seed) {
  const QStringList examples = QDir(EXAMPLES).entryList({"*.quorvane"}, QDir::Files, QDir::Name);
  const auto place = static_cast<qsizetype>(seed) % (examples.size() + 1);
  return place == examples.size() ? QString() : QString(examples[place]).chopped(9);
}

class WindowFuzzer : public RandomWalkTest {
  /// Printed at once, so that the actions before a crash are seen.
  void acted(const QString& what) override { std::cout << what.toStdString() << std::endl; }
};

TEST_F(WindowFuzzer, Walks) {
  bool isNumber = false;
  const unsigned seed = qEnvironmentVariable("QUORVANE_SEED").toUInt(&isNumber);
  ASSERT_TRUE(isNumber) << "QUORVANE_SEED is not set";
  const int seconds = qEnvironmentVariable("QUORVANE_SECONDS", "3600").toInt();
  SCOPED_TRACE("QUORVANE_SEED=" + std::to_string(seed));
  ASSERT_NO_FATAL_FAILURE(begin(startOf(seed)));
  ASSERT_NO_FATAL_FAILURE(walk(seed, Pace::kRepeatable, std::chrono::seconds(seconds)));
  ASSERT_NO_FATAL_FAILURE(expectThatTheSystemCanBeSavedAndOpened());
}

}  // namespace
}  // namespace quorvane
