#include <QColorDialog>

#include "WindowTest.h"

namespace quorvane {
namespace {

class PixelTypePanel : public WindowTest {
 protected:
  bool masqueradeShown() {
    EXPECT_EQ(visible("labelMasqueradeType"), visible("listMasqueradeType"));
    EXPECT_EQ(visible("colorMasqueradeType"), visible("listMasqueradeType"));
    return visible("listMasqueradeType");
  }
};

TEST_F(PixelTypePanel, ListsTheTypesToMasqueradeAsWithoutTheSelectedOne) {
  initialise(4);
  choose("listSelectPixelType", "2 - Pixel");
  EXPECT_FALSE(masqueradeShown());
  click("checkMasqueradePixel");
  EXPECT_TRUE(masqueradeShown());
  EXPECT_EQ(items("listMasqueradeType"), QStringList({"0 - Pixel", "1 - Pixel", "3 - Pixel"}));
  choose("listMasqueradeType", "3 - Pixel");
  EXPECT_EQ(model().getPixelMasqueradeAs(2), 3);
  EXPECT_EQ(well("colorMasqueradeType").rgb(), colorOf(3));

  choose("listSelectPixelType", "0 - Pixel");
  EXPECT_FALSE(masqueradeShown());
  choose("listSelectPixelType", "2 - Pixel");
  EXPECT_TRUE(masqueradeShown());
  EXPECT_EQ(list("listMasqueradeType").currentIndex(), 2);
  EXPECT_EQ(well("colorMasqueradeType").rgb(), colorOf(3));
  choose("listMasqueradeType", "1 - Pixel");
  EXPECT_EQ(model().getPixelMasqueradeAs(2), 1);
  choose("listSelectPixelType", "1 - Pixel");
  choose("listSelectPixelType", "2 - Pixel");
  EXPECT_EQ(list("listMasqueradeType").currentText(), "1 - Pixel");
}

TEST_F(PixelTypePanel, NumbersAreRoundedAsByPrintf) {
  initialise();
  model().setPixelField(1, 0.0625);
  model().setPixelPersistence(1, 0.3125);
  model().setPixelAlpha(1, -0.0);
  choose("listSelectPixelType", "1 - Pixel");
  EXPECT_EQ(text("textPixelField"), "0.062");
  EXPECT_EQ(text("textSelectedPixelPersistence"), "0.312");
  EXPECT_EQ(text("textSelectedPixelTrans"), "-0.000");
}

TEST_F(PixelTypePanel, TickingMasqueradeStoresTheFirstOtherType) {
  initialise(4);
  click("checkMasqueradePixel");
  EXPECT_EQ(model().getPixelMasqueradeAs(0), 1);
  EXPECT_EQ(well("colorMasqueradeType").rgb(), colorOf(1));
  choose("listSelectPixelType", "3 - Pixel");
  click("checkMasqueradePixel");
  EXPECT_EQ(model().getPixelMasqueradeAs(3), 0);
  EXPECT_EQ(well("colorMasqueradeType").rgb(), colorOf(0));
  click("checkMasqueradePixel");
  EXPECT_EQ(model().getPixelMasqueradeAs(3), kNoMasquerade);
  EXPECT_FALSE(masqueradeShown());
}

TEST_F(PixelTypePanel, ASingleTypeCannotMasquerade) {
  initialise(1);
  EXPECT_FALSE(enabled("checkMasqueradePixel"));
  click("buttonAddNewPixel");
  EXPECT_TRUE(enabled("checkMasqueradePixel"));
}

TEST_F(PixelTypePanel, RenamingRetitlesEveryListAndKeepsTheirSelections) {
  initialise(3);
  addRule("grow", "Irreversible Flip", "1 - Pixel", "2 - Pixel");
  choose("listPaintType", "2 - Pixel");
  choose("listSelectPixelType", "1 - Pixel");
  choose("listSelectedRuleFacNum", "2");
  choose("listSelectedRuleFacPixel", "2 - Pixel");
  choose("listNewRulePixelA", "1 - Pixel");
  choose("listNewRulePixelB", "0 - Pixel");
  enter("textPixelName", "wall");

  EXPECT_EQ(model().getPixelName(1), "wall");
  const QStringList types = {"0 - Pixel", "1 - wall", "2 - Pixel"};
  EXPECT_EQ(items("listPaintType"), types);
  EXPECT_EQ(items("listSelectPixelType"), types);
  EXPECT_EQ(items("listSelectedRuleFacPixel"), types);
  EXPECT_EQ(items("listNewRulePixelA"), QStringList({kAny}) + types);
  EXPECT_EQ(items("listNewRulePixelB"), QStringList({kAny}) + types);
  EXPECT_EQ(list("listPaintType").currentIndex(), 2);
  EXPECT_EQ(list("listSelectPixelType").currentIndex(), 1);
  EXPECT_EQ(list("listSelectedRuleFacPixel").currentIndex(), 2);
  EXPECT_EQ(list("listNewRulePixelA").currentIndex(), 2);
  EXPECT_EQ(list("listNewRulePixelB").currentIndex(), 1);
  EXPECT_EQ(text("textSelectedRulePixelA"), "1 - wall");
  EXPECT_EQ(text("textSelectedRulePixelB"), "2 - Pixel");
}

TEST_F(PixelTypePanel, RenamingWithoutARuleLeavesTheRulePanelEmpty) {
  initialise();
  enter("textPixelName", "gas");
  EXPECT_EQ(list("listSelectPixelType").currentText(), "0 - gas");
  EXPECT_EQ(text("textSelectedRulePixelA"), "");
  EXPECT_FALSE(enabled("sliderSelectedRuleParam"));
}

TEST_F(PixelTypePanel, AddingSelectsTheNewTypeAndStopsAtTen) {
  initialise(8);
  choose("listPaintType", "3 - Pixel");
  click("buttonAddNewPixel");
  EXPECT_EQ(model().getNumPixelTypes(), 9);
  EXPECT_EQ(list("listSelectPixelType").currentText(), "8 - New Pixel");
  EXPECT_EQ(text("textPixelName"), "New Pixel");
  EXPECT_EQ(text("textNumPixelTypes"), "9");
  EXPECT_EQ(get<Stepper>("stepperNumPixelTypes").value(), 9);
  EXPECT_EQ(list("listPaintType").currentText(), "3 - Pixel");
  EXPECT_TRUE(enabled("buttonAddNewPixel"));
  click("buttonAddNewPixel");
  EXPECT_EQ(list("listSelectPixelType").currentText(), "9 - New Pixel");
  EXPECT_EQ(text("textNumPixelTypes"), "10");
  EXPECT_FALSE(enabled("buttonAddNewPixel"));
  EXPECT_EQ(items("listNewRulePixelB").size(), 11);
}

TEST_F(PixelTypePanel, TheFieldSliderStoresItsValueAndShowsThreeDecimals) {
  initialise();
  choose("listSelectPixelType", "1 - Pixel");
  slideTo("sliderPixelField", -0.25);
  EXPECT_EQ(model().getPixelField(1), -0.25);
  EXPECT_EQ(text("textPixelField"), "-0.250");
  click("buttonZeroPixelField");
  EXPECT_EQ(model().getPixelField(1), 0.0);
  EXPECT_EQ(text("textPixelField"), "0.000");
  EXPECT_EQ(slider("sliderPixelField").value(), 0.0);
  key("sliderPixelField", Qt::Key_Home);
  EXPECT_EQ(model().getPixelField(1), -10.0);
  EXPECT_EQ(model().getPixelField(0), 0.0);
}

TEST_F(PixelTypePanel, PersistenceOpacityAndImmobilityReachTheSelectedType) {
  initialise();
  choose("listSelectPixelType", "1 - Pixel");
  slideTo("sliderSelectedPixelPersistence", 0.9);
  EXPECT_EQ(model().getPixelPersistence(1), 0.9);
  EXPECT_EQ(text("textSelectedPixelPersistence"), "0.900");
  key("sliderSelectedPixelTrans", Qt::Key_PageDown);
  EXPECT_EQ(model().getPixelAlpha(1), 0.9);
  EXPECT_EQ(text("textSelectedPixelTrans"), "0.900");
  click("checkImmobilePixel");
  EXPECT_EQ(model().getPixelImmobile(1), 1);
  EXPECT_EQ(model().getPixelPersistence(0), 0.0);

  choose("listSelectPixelType", "0 - Pixel");
  EXPECT_EQ(slider("sliderSelectedPixelPersistence").value(), 0.0);
  EXPECT_EQ(slider("sliderSelectedPixelTrans").value(), 1.0);
  EXPECT_FALSE(check("checkImmobilePixel").isChecked());
  choose("listSelectPixelType", "1 - Pixel");
  EXPECT_EQ(slider("sliderSelectedPixelPersistence").value(), 0.9);
  EXPECT_EQ(slider("sliderSelectedPixelTrans").value(), 0.9);
  EXPECT_TRUE(check("checkImmobilePixel").isChecked());
  click("checkImmobilePixel");
  EXPECT_EQ(model().getPixelImmobile(1), 0);
}

TEST_F(PixelTypePanel, ShowsAStoredValueUnrounded) {
  initialise();
  model().setPixelPersistence(1, 0.123456789);
  model().setPixelField(1, 1.0 / 3.0);
  choose("listSelectPixelType", "1 - Pixel");
  EXPECT_EQ(slider("sliderSelectedPixelPersistence").value(), 0.123456789);
  EXPECT_EQ(slider("sliderPixelField").value(), 1.0 / 3.0);
  EXPECT_EQ(text("textPixelField"), "0.333");
  EXPECT_EQ(model().getPixelPersistence(1), 0.123456789);
  EXPECT_EQ(model().getPixelField(1), 1.0 / 3.0);
}

TEST_F(PixelTypePanel, AColourReachesEveryWellOfTheTypeButTheMasqueradesUntilItsNextRefresh) {
  initialise(3);
  addRule("grow", "Irreversible Flip", "1 - Pixel", "1 - Pixel");
  choose("listSelectedRuleFacNum", "1");
  choose("listSelectedRuleFacPixel", "1 - Pixel");
  choose("listPaintType", "1 - Pixel");
  choose("listNewRulePixelA", "1 - Pixel");
  choose("listNewRulePixelB", "1 - Pixel");
  choose("listSelectPixelType", "1 - Pixel");
  // Only a document can make a type masquerade as itself; the window then shows two wells of one type.
  model().setPixelMasqueradeAs(1, 1);
  window_->controller().refreshSelectedPixel();
  const Rgb former = colorOf(1);

  click("colorSelectedPixelColor");
  QColorDialog* dialog = nullptr;
  ASSERT_TRUE(
      gui::waitUntil([&] { return (dialog = window_->findChild<QColorDialog*>()) && dialog->isVisible(); }));
  dialog->setCurrentColor(QColor(51, 102, 153));
  const Rgb chosen{0.2, 0.4, 0.6};
  EXPECT_EQ(colorOf(1), chosen);
  for (const char* name :
       {"colorSelectedPixelColor", "colorPaintType", "colorSelectedRulePixelA", "colorSelectedRulePixelB",
        "colorSelectedRuleFacPixel", "colorNewRulePixelA", "colorNewRulePixelB"})
    EXPECT_EQ(well(name).rgb(), chosen) << name;
  EXPECT_EQ(well("colorMasqueradeType").rgb(), former);
  dialog->accept();
  window_->controller().refreshSelectedPixel();
  EXPECT_EQ(well("colorMasqueradeType").rgb(), chosen);
}

TEST_F(PixelTypePanel, TheListsShowPrintableTextUnchanged) {
  initialise();
  enter("textPixelName", "<b>%1 & co</b>");
  EXPECT_EQ(model().getPixelName(0), "<b>%1 & co</b>");
  EXPECT_EQ(list("listPaintType").currentText(), "0 - <b>%1 & co</b>");
  EXPECT_EQ(text("labelPlotRed"), "0 - <b>%1 & co</b>");
}

TEST_F(PixelTypePanel, EditsChangeARunningModel) {
  initialise(3);
  click("buttonRunModel");
  choose("listSelectPixelType", "2 - Pixel");
  click("checkImmobilePixel");
  enter("textPixelName", "ice");
  click("buttonAddNewPixel");
  EXPECT_EQ(model().varMyState, kRunning);
  EXPECT_EQ(model().getPixelImmobile(2), 1);
  EXPECT_EQ(model().getPixelName(2), "ice");
  EXPECT_EQ(model().getNumPixelTypes(), 4);
}

}  // namespace
}  // namespace quorvane
