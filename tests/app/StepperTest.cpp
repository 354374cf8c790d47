#include <gtest/gtest.h>

#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

#include "GuiSupport.h"
#include "PrintText.h"
#include "app/Stepper.h"

namespace quorvane {
namespace {

class StepperTest : public ::testing::Test {
 protected:
  void SetUp() override {
    stepper_.setRange(1, 10);
    stepper_.setValue(2);
    stepper_.resize(stepper_.sizeHint());
    ASSERT_TRUE(gui::showAndActivate(stepper_));
  }
  Stepper stepper_;
  QSignalSpy stepped_{&stepper_, &Stepper::stepped};
};

TEST_F(StepperTest, ShowsOnlyArrows) {
  EXPECT_FALSE(stepper_.findChild<QLineEdit*>()->isVisible());
  EXPECT_LT(stepper_.sizeHint().width(), 40);
}

TEST_F(StepperTest, SignalsOnlyStepsOfTheUser) {
  stepper_.setValue(5);
  EXPECT_EQ(stepped_.count(), 0);
  gui::click(stepper_, QPoint(stepper_.width() / 2, stepper_.height() / 4));
  EXPECT_EQ(stepper_.value(), 6);
  QTest::keyClick(&stepper_, Qt::Key_Down);
  EXPECT_EQ(stepper_.value(), 5);
  EXPECT_EQ(stepped_.count(), 2);
  EXPECT_EQ(stepped_.last().first().toInt(), 5);
}

TEST_F(StepperTest, StopsAtItsEndsWithoutASignal) {
  stepper_.setValue(10);
  QTest::keyClick(&stepper_, Qt::Key_Up);
  EXPECT_EQ(stepper_.value(), 10);
  EXPECT_EQ(stepped_.count(), 0);
}

TEST_F(StepperTest, TypingEditsNothing) {
  QTest::keyClicks(&stepper_, "7");
  QTest::keyClick(&stepper_, Qt::Key_Backspace);
  QTest::keyClick(&stepper_, Qt::Key_Return);
  EXPECT_EQ(stepper_.value(), 2);
}

}  // namespace
}  // namespace quorvane
