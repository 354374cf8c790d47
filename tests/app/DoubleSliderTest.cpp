#include <gmock/gmock.h>

#include <QSignalSpy>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QTest>

#include "GuiSupport.h"
#include "PrintText.h"
#include "app/DoubleSlider.h"

namespace quorvane {
namespace {

using ::testing::DoubleNear;

class DoubleSliderTest : public ::testing::Test {
 protected:
  void SetUp() override {
    slider_.setOrientation(Qt::Horizontal);
    slider_.resize(300, 24);
    ASSERT_TRUE(gui::showAndActivate(slider_));
    slider_.setFocus();
  }
  void press(Qt::Key key, int times = 1, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    for (int time = 0; time < times; ++time) QTest::keyClick(&slider_, key, modifiers);
  }
  QPoint knob() const {
    QStyleOptionSlider option;
    option.initFrom(&slider_);
    option.orientation = Qt::Horizontal;
    option.minimum = slider_.minimum();
    option.maximum = slider_.maximum();
    option.sliderPosition = slider_.sliderPosition();
    return slider_.style()
        ->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, &slider_)
        .center();
  }

  DoubleSlider slider_;
  QSignalSpy moved_{&slider_, &DoubleSlider::moved};
  QSignalSpy shown_{&slider_, &DoubleSlider::valueShown};
};

TEST_F(DoubleSliderTest, KeepsAValueFromCodeExactlyAndCallsNoHandler) {
  for (const double value : {0.1234567890123, 1.0 / 3.0, -4.0, 70.0}) {
    slider_.setValue(value);
    EXPECT_EQ(slider_.value(), value);
  }
  slider_.setMaximumValue(10.0);
  slider_.setMinimumValue(-10.0);
  EXPECT_EQ(slider_.value(), 70.0);
  EXPECT_EQ(moved_.count(), 0);
  EXPECT_EQ(shown_.last().first(), "70.000");
}

TEST_F(DoubleSliderTest, TheUserReachesExactDecimals) {
  slider_.setMaximumValue(10.0);
  slider_.setMinimumValue(-10.0);
  press(Qt::Key_Left, 2);
  press(Qt::Key_Left, 50, Qt::ShiftModifier);
  EXPECT_EQ(slider_.value(), -0.25);
  press(Qt::Key_Right, 4);
  EXPECT_EQ(slider_.value(), 0.15);
  press(Qt::Key_PageUp);
  EXPECT_EQ(slider_.value(), 1.15);
  press(Qt::Key_Home);
  EXPECT_EQ(slider_.value(), -10.0);
  press(Qt::Key_End);
  EXPECT_EQ(slider_.value(), 10.0);
  EXPECT_EQ(moved_.last().first().toDouble(), 10.0);
  EXPECT_EQ(shown_.last().first(), "10.000");
}

TEST_F(DoubleSliderTest, TheKnobIsAtTheNearestPosition) {
  for (int thousandth = 0; thousandth <= 1000; ++thousandth) {
    slider_.setValue(thousandth / 1000.0);
    ASSERT_EQ(slider_.sliderPosition(), thousandth);
  }
  slider_.setValue(0.1236);
  EXPECT_EQ(slider_.sliderPosition(), 124);
}

TEST_F(DoubleSliderTest, AHundredthIsAStepOfAUnitRange) {
  press(Qt::Key_Right);
  EXPECT_EQ(slider_.value(), 0.01);
  press(Qt::Key_Up, 1, Qt::ShiftModifier);
  EXPECT_EQ(slider_.value(), 0.011);
  press(Qt::Key_Down, 2, Qt::ShiftModifier);
  EXPECT_EQ(slider_.value(), 0.009);
  EXPECT_EQ(moved_.count(), 4);
}

TEST_F(DoubleSliderTest, FollowsTheMouse) {
  const QPoint from = knob();
  QTest::mousePress(&slider_, Qt::LeftButton, Qt::NoModifier, from);
  gui::drag(slider_, QPoint(150, from.y()));
  EXPECT_THAT(slider_.value(), DoubleNear(0.5, 0.03));
  gui::drag(slider_, QPoint(400, from.y()));
  QTest::mouseRelease(&slider_, Qt::LeftButton, Qt::NoModifier, QPoint(299, from.y()));
  EXPECT_EQ(slider_.value(), 1.0);
  EXPECT_EQ(moved_.count(), 2);
}

TEST_F(DoubleSliderTest, FollowsTheWheel) {
  QWheelEvent event(QPointF(10, 10), slider_.mapToGlobal(QPointF(10, 10)), {}, {0, 120}, Qt::NoButton,
                    Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&slider_, &event);
  EXPECT_EQ(slider_.value(), 0.01 * QApplication::wheelScrollLines());
}

TEST_F(DoubleSliderTest, MovingToAnEndThatTheValueIsBeyondChangesNothing) {
  slider_.setValue(5.0);
  press(Qt::Key_End);
  EXPECT_EQ(slider_.value(), 5.0);
  press(Qt::Key_Left);
  EXPECT_EQ(slider_.value(), 0.99);
}

TEST_F(DoubleSliderTest, ALogarithmicKnobMovesEquallyFarForEqualFactors) {
  slider_.setLogarithmic(true);
  slider_.setMinimumValue(5.0);
  slider_.setMaximumValue(1e9);
  slider_.setDecimals(0);
  slider_.setValue(5.0);
  EXPECT_EQ(slider_.sliderPosition(), slider_.minimum());
  slider_.setValue(1e9);
  EXPECT_EQ(slider_.sliderPosition(), slider_.maximum());
  slider_.setValue(std::sqrt(5.0 * 1e9));
  EXPECT_EQ(slider_.sliderPosition(), (slider_.minimum() + slider_.maximum()) / 2);
  slider_.setValue(1234.5);
  EXPECT_EQ(slider_.value(), 1234.5);
  EXPECT_EQ(slider_.intValue(), 1234);
  EXPECT_EQ(shown_.last().first(), QLocale().toString(1234));
}

TEST_F(DoubleSliderTest, ALogarithmicKnobGivesTwoSignificantDigits) {
  slider_.setLogarithmic(true);
  slider_.setMinimumValue(5.0);
  slider_.setMaximumValue(1e9);
  slider_.setValue(1000.0);
  press(Qt::Key_Right);
  EXPECT_EQ(slider_.value(), 1200.0);
  double last = 1200.0;
  while (last < 1e9) {
    press(Qt::Key_Right);
    ASSERT_GT(slider_.value(), last);
    last = slider_.value();
  }
  EXPECT_EQ(last, 1e9);
  press(Qt::Key_Home);
  EXPECT_EQ(slider_.value(), 5.0);
}

TEST_F(DoubleSliderTest, ANaNDoesNotMoveTheKnobOutOfItsRange) {
  slider_.setValue(std::nan(""));
  EXPECT_EQ(slider_.sliderPosition(), slider_.minimum());
}

}  // namespace
}  // namespace quorvane
