#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QColorDialog>
#include <QSignalSpy>
#include <QTest>
#include <map>

#include "WindowTest.h"

namespace quorvane {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class Accessibility : public WindowTest {
 protected:
  QAccessibleInterface& accessible(const char* name) {
    return *QAccessible::queryAccessibleInterface(&control(name));
  }
  std::string nameOf(const char* name) { return accessible(name).text(QAccessible::Name).toStdString(); }
  std::string descriptionOf(const char* name) {
    return accessible(name).text(QAccessible::Description).toStdString();
  }
  QAccessibleValueInterface& valueOf(const char* name) { return *accessible(name).valueInterface(); }
  void act(const char* name, const QString& action) {
    ASSERT_TRUE(accessible(name).actionInterface()->actionNames().contains(action)) << name;
    accessible(name).actionInterface()->doAction(action);
  }
  void expectRange(const char* name, double least, double most, double step) {
    EXPECT_EQ(valueOf(name).minimumValue().toDouble(), least) << name;
    EXPECT_EQ(valueOf(name).maximumValue().toDouble(), most) << name;
    EXPECT_EQ(valueOf(name).minimumStepSize().toDouble(), step) << name;
  }

  /// The visible descendants of an accessible object, without pure containers.
  static void collect(QAccessibleInterface& root, QStringList& names, QStringList& nameless) {
    for (int index = 0; index < root.childCount(); ++index) {
      QAccessibleInterface* child = root.child(index);
      ASSERT_NE(child, nullptr);
      if (child->state().invisible) continue;
      const QString name = child->text(QAccessible::Name);
      const bool container = child->role() == QAccessible::Client && child->childCount() > 0;
      if (!name.isEmpty()) names += name;
      if (name.isEmpty() && !container) nameless += child->object() ? child->object()->objectName() : "?";
      collect(*child, names, nameless);
    }
  }
  /// Every visible control has a name, and no name contains the mark of a mnemonic.
  void expectNames(const char* state) {
    QStringList names, nameless;
    collect(*QAccessible::queryAccessibleInterface(window_.get()), names, nameless);
    EXPECT_GE(names.size(), 60) << state;
    EXPECT_EQ(nameless.join(' '), "") << state;
    EXPECT_EQ(names.filter("&").join(' '), "") << state;
  }
};

TEST_F(Accessibility, EveryControlThatShowsHasANameInEveryStateOfThePanels) {
  expectNames("at the start");
  initialise(3);
  expectNames("without a rule");
  click("checkMasqueradePixel");
  for (const RuleKind& kind : kRuleKinds) {
    addRule(kind.label, kind.label, kAny, "1 - Pixel");
    expectNames(kind.label);
  }
  choose("listSelectedRule", "0 - Irreversible Flip");
  choose("listSelectedRuleFacNum", "1");
  expectNames("with a facilitated flip and a masquerade");
  click("buttonRunModel");
  expectNames("during a run");
}

TEST_F(Accessibility, ALabelIsReadWithItsCaptionAndItsValue) {
  EXPECT_EQ(nameOf("textNumPixelTypes"), "Number of pixel types: 2");
  EXPECT_EQ(nameOf("textWidthHeight"), "Lattice density: 100");
  EXPECT_EQ(nameOf("textSimulationSpeed"), "Simulation speed: 1,000");
  EXPECT_EQ(nameOf("textSelectedRuleType"), "Type of the rule");
  initialise(2);
  addRule("grow", "Irreversible Flip", kAny, "1 - Pixel");
  slideTo("sliderSelectedRuleParam", 0.25);
  EXPECT_EQ(nameOf("textSelectedRuleParam"), "Parameter: 0.250");
  EXPECT_EQ(nameOf("textSelectedRuleType"), "Type of the rule: Irreversible Flip");
  EXPECT_EQ(nameOf("textSelectedRulePixelA"), "Pixel type A of the rule: Any pixel type");
  EXPECT_EQ(nameOf("textSelectedRulePixelB"), "Pixel type B of the rule: 1 - Pixel");
  EXPECT_EQ(nameOf("labelPlotRed"), "Type shown in red: 0 - Pixel");
  EXPECT_THAT(nameOf("statusLine"), StartsWith("Status: Stopped"));
  EXPECT_EQ(accessible("statusLine").role(), QAccessible::StatusBar);
  EXPECT_EQ(accessible("textPixelField").role(), QAccessible::StaticText);
  EXPECT_EQ(descriptionOf("textPixelField"), control("textPixelField").toolTip().toStdString());
}

TEST_F(Accessibility, SlidersReportTheirRealValuesAndRanges) {
  expectRange("sliderSimulationSpeed", 5.0, 1e9, 1.0);
  EXPECT_EQ(valueOf("sliderSimulationSpeed").currentValue().toDouble(), 1000.0);
  expectRange("sliderWidthHeight", 2.0, 256.0, 1.0);
  EXPECT_EQ(valueOf("sliderWidthHeight").currentValue().toDouble(), 100.0);
  expectRange("sliderSelectedPixelPersistence", 0.0, 1.0, 0.001);
  expectRange("sliderSelectedPixelTrans", 0.0, 1.0, 0.001);
  expectRange("sliderPixelField", -10.0, 10.0, 0.001);
  expectRange("sliderSelectedRuleParam", 0.0, 1.0, 0.001);
  initialise(2);
  addRule("repel", "Pixel-Pixel Interaction", "0 - Pixel", "1 - Pixel");
  expectRange("sliderSelectedRuleParam", -10.0, 10.0, 0.001);
}

TEST_F(Accessibility, SettingASliderActsAsAMoveByTheUserAndKeepsTheValueExactly) {
  initialise(2);
  addRule("grow", "Irreversible Flip", kAny, "1 - Pixel");
  QSignalSpy moved(&slider("sliderSelectedRuleParam"), &DoubleSlider::moved);
  valueOf("sliderSelectedRuleParam").setCurrentValue(0.1234567);
  EXPECT_EQ(model().getRuleParam(0), 0.1234567);
  EXPECT_EQ(text("textSelectedRuleParam"), "0.123");
  EXPECT_EQ(moved.count(), 1);
  valueOf("sliderSelectedRuleParam").setCurrentValue(0.1234567);
  EXPECT_EQ(moved.count(), 1) << "nothing has moved";
  valueOf("sliderSelectedPixelPersistence").setCurrentValue(0.98765);
  EXPECT_EQ(model().getPixelPersistence(0), 0.98765);
  EXPECT_EQ(text("textSelectedPixelPersistence"), "0.988");
  valueOf("sliderSelectedPixelTrans").setCurrentValue(0.3);
  EXPECT_EQ(model().getPixelAlpha(0), 0.3);
  valueOf("sliderPixelField").setCurrentValue(-2.71828);
  EXPECT_EQ(model().getPixelField(0), -2.71828);
  EXPECT_EQ(text("textPixelField"), "-2.718");
}

TEST_F(Accessibility, SettingASliderIsLimitedToItsRange) {
  initialise(2);
  valueOf("sliderPixelField").setCurrentValue(1000.0);
  EXPECT_EQ(model().getPixelField(0), 10.0);
  valueOf("sliderPixelField").setCurrentValue(-1000.0);
  EXPECT_EQ(model().getPixelField(0), -10.0);
  for (const QVariant& nonsense : {QVariant(), QVariant("much"), QVariant(std::nan(""))})
    valueOf("sliderPixelField").setCurrentValue(nonsense);
  EXPECT_EQ(model().getPixelField(0), -10.0);
}

TEST_F(Accessibility, ASliderOfWholeNumbersIsSetToWholeNumbers) {
  valueOf("sliderSimulationSpeed").setCurrentValue(123456.0);
  EXPECT_EQ(model().varDelayAfterCycle, 123456) << "not rounded to two digits";
  valueOf("sliderWidthHeight").setCurrentValue(63.7);
  EXPECT_EQ(valueOf("sliderWidthHeight").currentValue().toDouble(), 64.0);
  EXPECT_EQ(text("textWidthHeight"), "64");
}

TEST_F(Accessibility, DisabledControlsCannotBeSet) {
  valueOf("sliderPixelField").setCurrentValue(3.0);
  EXPECT_EQ(valueOf("sliderPixelField").currentValue().toDouble(), 0.0);
  initialise(2);
  click("buttonRunModel");
  valueOf("sliderWidthHeight").setCurrentValue(20.0);
  EXPECT_EQ(text("textWidthHeight"), "100") << "the size is locked during a run";
  valueOf("stepperNumPixelTypes").setCurrentValue(7);
  EXPECT_EQ(text("textNumPixelTypes"), "2");
}

TEST_F(Accessibility, TheStepperIsASpinButtonWithARangeAndWithoutText) {
  EXPECT_EQ(accessible("stepperNumPixelTypes").role(), QAccessible::SpinBox);
  EXPECT_EQ(accessible("stepperNumPixelTypes").childCount(), 0);
  expectRange("stepperNumPixelTypes", 1.0, 10.0, 1.0);
  EXPECT_EQ(valueOf("stepperNumPixelTypes").currentValue().toInt(), 2);
  valueOf("stepperNumPixelTypes").setCurrentValue(5);
  const QAccessibleTextInterface& read = *accessible("stepperNumPixelTypes").textInterface();
  EXPECT_EQ(read.text(0, read.characterCount()), "5");
  EXPECT_EQ(text("textNumPixelTypes"), "5");
  valueOf("stepperNumPixelTypes").setCurrentValue(1e12);
  EXPECT_EQ(text("textNumPixelTypes"), "10");
  valueOf("stepperNumPixelTypes").setCurrentValue(std::nan(""));
  EXPECT_EQ(text("textNumPixelTypes"), "10");
  click("buttonInitialiseModel");
  EXPECT_EQ(model().getNumPixelTypes(), 10);
}

TEST_F(Accessibility, AColourWellIsReadWithItsColour) {
  EXPECT_EQ(nameOf("colorSelectedPixelColor"), "Colour of the pixel type: none");
  initialise(2);
  well("colorSelectedPixelColor").setRgb({0.321, 0.85, 1.5});
  EXPECT_EQ(nameOf("colorSelectedPixelColor"), "Colour of the pixel type: red 0.32, green 0.85, blue 1.00");
  EXPECT_EQ(descriptionOf("colorSelectedPixelColor"),
            control("colorSelectedPixelColor").toolTip().toStdString());
}

TEST_F(Accessibility, OnlyAColourWellThatCanBeEditedIsAButton) {
  initialise(2);
  EXPECT_EQ(accessible("colorPaintType").role(), QAccessible::Graphic);
  EXPECT_TRUE(accessible("colorPaintType").actionInterface()->actionNames().isEmpty());
  EXPECT_EQ(accessible("colorSelectedPixelColor").role(), QAccessible::Button);
  act("colorSelectedPixelColor", QAccessibleActionInterface::pressAction());
  EXPECT_TRUE(gui::waitUntil([this] { return window_->findChild<QColorDialog*>() != nullptr; }));
}

TEST_F(Accessibility, TogglingACheckBoxActsAsAClickByTheUser) {
  initialise(2);
  EXPECT_EQ(nameOf("checkImmobilePixel"), "The pixel type is immobile");
  EXPECT_FALSE(accessible("checkImmobilePixel").state().checked);
  act("checkImmobilePixel", QAccessibleActionInterface::toggleAction());
  EXPECT_TRUE(accessible("checkImmobilePixel").state().checked);
  EXPECT_EQ(model().getPixelImmobile(0), 1);
  act("checkMasqueradePixel", QAccessibleActionInterface::toggleAction());
  EXPECT_EQ(model().getPixelMasqueradeAs(0), 1);
  EXPECT_TRUE(visible("listMasqueradeType"));
}

TEST_F(Accessibility, AListIsReadWithItsNameAndTheChosenItem) {
  EXPECT_EQ(nameOf("listPaintType"), "Pixel type to paint with") << "nothing to choose yet";
  EXPECT_EQ(nameOf("listNewRuleType"), "Type of the new rule: Irreversible Flip");
  initialise(3);
  choose("listSelectPixelType", "1 - Pixel");
  EXPECT_EQ(nameOf("listSelectPixelType"), "Pixel type to edit: 1 - Pixel");
  EXPECT_EQ(accessible("listSelectPixelType").text(QAccessible::Value), "1 - Pixel");
}

TEST_F(Accessibility, AnOpenListShowsItsItemsAndWhichIsChosen) {
  initialise(3);
  QAccessibleInterface& list = accessible("listPaintType");
  EXPECT_EQ(list.childCount(), 0);
  EXPECT_TRUE(list.state().collapsed);
  act("listPaintType", QAccessibleActionInterface::showMenuAction());
  ASSERT_TRUE(gui::waitUntil([&] { return list.childCount() == 1; }));
  EXPECT_TRUE(list.state().expanded);
  QAccessibleInterface* items = list.child(0);
  EXPECT_EQ(items->text(QAccessible::Name), "Pixel type to paint with");
  EXPECT_EQ(list.indexOfChild(items), 0);
  EXPECT_EQ(items->parent(), &list);
  ASSERT_EQ(items->childCount(), 3);
  EXPECT_EQ(items->child(2)->text(QAccessible::Name), "2 - Pixel");
  EXPECT_TRUE(items->child(0)->state().selected);
  act("listPaintType", QAccessibleActionInterface::showMenuAction());
  EXPECT_TRUE(gui::waitUntil([&] { return list.childCount() == 0; }));
}

TEST_F(Accessibility, TheLatticeAndThePlotAreDescribedByTheirShares) {
  EXPECT_EQ(nameOf("myGraphicalLatticeModel"), "Lattice");
  EXPECT_EQ(accessible("myGraphicalLatticeModel").role(), QAccessible::Graphic);
  EXPECT_EQ(descriptionOf("myGraphicalLatticeModel"), "No model yet.");
  EXPECT_EQ(nameOf("plotPopulations"), "Shares of the lattice");
  EXPECT_EQ(accessible("plotPopulations").role(), QAccessible::Chart);
  EXPECT_THAT(descriptionOf("plotPopulations"), HasSubstr("No points yet."));

  initialise(2);
  for (int i = 0; i < model().getIMax(); ++i)
    for (int j = 0; j < model().getJMax(); ++j) model().setSiteValue(i, j, j == 0 ? 1 : 0);
  const double share = 100.0 / model().getJMax();
  const std::string shares = QString("0 - Pixel %1 %, 1 - Pixel %2 %.")
                                 .arg(100.0 - share, 0, 'f', 1)
                                 .arg(share, 0, 'f', 1)
                                 .toStdString();
  EXPECT_TRUE(gui::waitUntil([&] {
    return descriptionOf("myGraphicalLatticeModel") == std::to_string(model().getIMax()) + " × " +
                                                           std::to_string(model().getJMax()) +
                                                           " sites: " + shares;
  })) << descriptionOf("myGraphicalLatticeModel");

  choose("listPaintType", "1 - Pixel");
  click("buttonRunModel");
  EXPECT_TRUE(gui::waitUntil([&] {
    return QString::fromStdString(descriptionOf("plotPopulations")).contains(" in red, 1 - Pixel ");
  })) << descriptionOf("plotPopulations");
}

}  // namespace
}  // namespace quorvane
