// Events that assistive technology receives while it listens, which needs the accessibility bus of a session.

#include <gmock/gmock.h>

#include <QAccessible>
#include <QElapsedTimer>
#include <vector>

#include "WindowTest.h"

namespace quorvane {
namespace {

using ::testing::StartsWith;

struct Heard {
  const QObject* object;
  QAccessible::Event type;
  QVariant value;
};

/// The events since the last call.
std::vector<Heard> heard;

void listen(QAccessibleEvent* event) {
  QVariant value;
  if (event->type() == QAccessible::ValueChanged)
    value = static_cast<QAccessibleValueChangeEvent*>(event)->value();
  heard.push_back({event->object(), event->type(), value});
}

/// A window whose events are observed from before its creation.
class AccessibilityEvents : public WindowTest {
 protected:
  void SetUp() override {
    ASSERT_TRUE(gui::waitUntil([] { return QAccessible::isActive(); })) << "no accessibility bus";
    before_ = QAccessible::installUpdateHandler(listen);
    WindowTest::SetUp();
  }
  void TearDown() override {
    window_.reset();
    QAccessible::installUpdateHandler(before_);
  }

  QAccessibleInterface& accessible(const char* name) {
    return *QAccessible::queryAccessibleInterface(&control(name));
  }
  std::string nameOf(const char* name) { return accessible(name).text(QAccessible::Name).toStdString(); }

  /// The number of events from a control.
  int timesHeard(const char* name, QAccessible::Event type) {
    int times = 0;
    for (const Heard& each : heard) times += each.object == &control(name) && each.type == type;
    return times;
  }
  double lastValueHeard(const char* name) {
    double value = -1.0;
    for (const Heard& each : heard)
      if (each.object == &control(name) && each.type == QAccessible::ValueChanged)
        value = each.value.toDouble();
    return value;
  }

 private:
  QAccessible::UpdateHandler before_ = nullptr;
};

TEST_F(AccessibilityEvents, ControlsHaveTheirRolesAndValuesEvenIfObservedFromTheirCreation) {
  EXPECT_EQ(accessible("sliderSimulationSpeed").valueInterface()->currentValue().toDouble(), 1000.0);
  EXPECT_EQ(accessible("stepperNumPixelTypes").childCount(), 0);
  EXPECT_EQ(accessible("colorPaintType").role(), QAccessible::Graphic);
  EXPECT_EQ(accessible("plotPopulations").role(), QAccessible::Chart);
  EXPECT_EQ(accessible("statusLine").role(), QAccessible::StatusBar);
  EXPECT_EQ(nameOf("textSelectedRuleParam"), "Parameter: 0.000");
  EXPECT_EQ(nameOf("labelPlotRed"), "Type shown in red: No type yet");
  EXPECT_EQ(nameOf("listNewRuleType"), "Type of the new rule: Irreversible Flip");
  EXPECT_EQ(nameOf("listNewRulePixelA"), "Pixel type A of the new rule: Any pixel type");
}

TEST_F(AccessibilityEvents, ALabelAnnouncesEveryChangeOfItsValue) {
  initialise(2);
  heard.clear();
  for (const auto& [slider, label] :
       {std::pair{"sliderSelectedPixelPersistence", "textSelectedPixelPersistence"},
        std::pair{"sliderSelectedPixelTrans", "textSelectedPixelTrans"},
        std::pair{"sliderPixelField", "textPixelField"},
        std::pair{"sliderSimulationSpeed", "textSimulationSpeed"},
        std::pair{"sliderWidthHeight", "textWidthHeight"}}) {
    key(slider, slider == std::string("sliderSelectedPixelTrans") ? Qt::Key_Left : Qt::Key_Right);
    EXPECT_EQ(timesHeard(label, QAccessible::NameChanged), 1) << label;
  }
  click("buttonZeroPixelField");
  EXPECT_EQ(timesHeard("textPixelField", QAccessible::NameChanged), 2) << "a change by code";
  click("buttonAddNewPixel");
  EXPECT_EQ(timesHeard("textNumPixelTypes", QAccessible::NameChanged), 1);
}

TEST_F(AccessibilityEvents, TheStatusLineIsReadAtAnyTimeAndAnnouncedAtMostOnceASecond) {
  initialise(2);
  click("buttonRunModel");
  QElapsedTimer clock;
  clock.start();
  gui::processEvents();
  heard.clear();
  const auto times = [this] { return timesHeard("statusLine", QAccessible::NameChanged); };
  ASSERT_TRUE(gui::waitUntil([&] { return times() >= 3; }));
  EXPECT_GE(clock.elapsed(), 1900) << "three of them span two seconds";
  EXPECT_EQ(nameOf("statusLine"), "Status: " + text("statusLine").toStdString());
  click("buttonStopModel");
  const int before = times();
  ASSERT_TRUE(gui::waitUntil([&] { return times() > before; }));
  EXPECT_THAT(nameOf("statusLine"), StartsWith("Status: Stopped"));
}

TEST_F(AccessibilityEvents, ASliderAnnouncesEveryChangeWithItsRealValue) {
  initialise(2);
  heard.clear();
  slider("sliderPixelField").setValue(0.12341);
  slider("sliderPixelField").setValue(0.12342);
  EXPECT_EQ(lastValueHeard("sliderPixelField"), 0.12342) << "the knob stays where it is";
  const int before = timesHeard("sliderPixelField", QAccessible::ValueChanged);
  slider("sliderPixelField").setValue(0.12342);
  EXPECT_EQ(timesHeard("sliderPixelField", QAccessible::ValueChanged), before) << "no change";
  key("sliderSimulationSpeed", Qt::Key_Right);
  EXPECT_EQ(lastValueHeard("sliderSimulationSpeed"), 1200.0);
}

TEST_F(AccessibilityEvents, TheStepperAnnouncesEveryStep) {
  heard.clear();
  key("stepperNumPixelTypes", Qt::Key_Up);
  EXPECT_EQ(lastValueHeard("stepperNumPixelTypes"), 3.0);
  get<Stepper>("stepperNumPixelTypes").setValue(7);
  EXPECT_EQ(lastValueHeard("stepperNumPixelTypes"), 7.0) << "a change by code";
}

TEST_F(AccessibilityEvents, AColourWellAnnouncesEachColour) {
  initialise(2);
  heard.clear();
  well("colorSelectedPixelColor").setRgb({0.321, 0.85, 1.5});
  well("colorSelectedPixelColor").setRgb({0.321, 0.85, 1.5});
  EXPECT_EQ(timesHeard("colorSelectedPixelColor", QAccessible::NameChanged), 1);
}

TEST_F(AccessibilityEvents, AListAnnouncesAnotherItem) {
  initialise(3);
  heard.clear();
  key("listPaintType", Qt::Key_Down);
  EXPECT_EQ(nameOf("listPaintType"), "Pixel type to paint with: 1 - Pixel");
  EXPECT_GE(timesHeard("listPaintType", QAccessible::ValueChanged), 1);
}

TEST_F(AccessibilityEvents, TheLatticeAnnouncesANewDescriptionOnce) {
  initialise(2);
  heard.clear();
  const auto times = [this] {
    return timesHeard("myGraphicalLatticeModel", QAccessible::DescriptionChanged);
  };
  EXPECT_TRUE(gui::waitUntil([&] { return times() == 1; }));
  EXPECT_FALSE(gui::waitUntil([&] { return times() > 1; }, std::chrono::milliseconds(2500)));
}

}  // namespace
}  // namespace quorvane
