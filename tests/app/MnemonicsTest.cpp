#include <QTest>

#include "WindowTest.h"

namespace quorvane {
namespace {

/// A button pressed by its mnemonic acts a tenth of a second later, and the mouse may act in between.
class Mnemonics : public WindowTest {
 protected:
  void press(Qt::Key letter) { QTest::keyClick(window_.get(), letter, Qt::AltModifier); }
  /// Waits long enough for the delayed action.
  void expectNoChange(const std::function<bool()>& changed) {
    EXPECT_FALSE(gui::waitUntil(changed, std::chrono::milliseconds(500)));
  }
};

TEST_F(Mnemonics, PressAButtonThatIsEnabled) {
  press(Qt::Key_I);
  EXPECT_TRUE(gui::waitUntil([this] { return model().varMyState == kStopped; }));
  press(Qt::Key_R);
  EXPECT_TRUE(gui::waitUntil([this] { return model().varMyState == kRunning; }));
  press(Qt::Key_S);
  EXPECT_TRUE(gui::waitUntil([this] { return model().varMyState == kStopped; }));
}

TEST_F(Mnemonics, RemakeThatIsOvertakenByRunDoesNotDisturbTheRun) {
  initialise();
  press(Qt::Key_M);
  click("buttonRunModel");
  expectNoChange([this] { return model().varMyState != kRunning; });
  EXPECT_TRUE(enabled("buttonStopModel"));
}

TEST_F(Mnemonics, InitialiseThatIsOvertakenByAClickDoesNotInitialiseTwice) {
  press(Qt::Key_I);
  click("buttonInitialiseModel");
  click("buttonAddNewRule");
  ASSERT_EQ(model().getNumRules(), 1);
  expectNoChange([this] { return model().getNumRules() != 1; });
  EXPECT_EQ(items("listSelectedRule").size(), 1);
}

TEST_F(Mnemonics, AddTypeThatIsOvertakenByAClickAddsNoEleventhType) {
  initialise(9);
  press(Qt::Key_A);
  click("buttonAddNewPixel");
  ASSERT_EQ(model().getNumPixelTypes(), kMaxPixelTypes);
  expectNoChange([this] { return model().getNumPixelTypes() != kMaxPixelTypes; });
}

}  // namespace
}  // namespace quorvane
