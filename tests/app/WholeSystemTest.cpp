#include <QColorDialog>
#include <QDialogButtonBox>
#include <QTemporaryDir>
#include <QTest>
#include <set>

#include "FilePanel.h"
#include "ProgramRun.h"
#include "RunLoopThreads.h"
#include "SystemReport.h"
#include "WindowTest.h"

namespace quorvane {
namespace {

using Site = std::pair<int, int>;

constexpr int kSoil = 0, kGrass = 1, kWall = 2;

/// Builds a system with walls that no rule moves or makes, in which soil and grass do all the rest.
class WholeSystem : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    ASSERT_TRUE(folder_.isValid());
  }

  void chooseItem(const char* listName, int index) { choose(listName, items(listName).value(index)); }

  void buildTypes() {
    key("sliderWidthHeight", Qt::Key_Left, 60);
    ASSERT_EQ(text("textWidthHeight"), "40");
    click("buttonInitialiseModel");
    click("buttonAddNewPixel");
    ASSERT_EQ(model().getNumPixelTypes(), 3);

    enter("textPixelName", "wall");
    pickColor("#8040c0");
    click("checkImmobilePixel");
    click("checkMasqueradePixel");
    chooseItem("listMasqueradeType", kGrass);

    chooseItem("listSelectPixelType", kGrass);
    enter("textPixelName", "grass, tall");
    slideTo("sliderSelectedPixelPersistence", 0.875);
    slideTo("sliderPixelField", -0.25);

    chooseItem("listSelectPixelType", kSoil);
    enter("textPixelName", " soil ");
    key("sliderSelectedPixelTrans", Qt::Key_Left, 60);
  }

  void pickColor(const QString& name) {
    click("colorSelectedPixelColor");
    QColorDialog* dialog = nullptr;
    ASSERT_TRUE(gui::waitUntil([&] {
      dialog = window_->findChild<QColorDialog*>();
      return dialog && dialog->isVisible();
    }));
    QLineEdit* field = nullptr;
    for (QLineEdit* candidate : dialog->findChildren<QLineEdit*>())
      if (candidate->text().startsWith('#')) field = candidate;
    auto* buttons = dialog->findChild<QDialogButtonBox*>();
    ASSERT_TRUE(field && buttons);
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(field, name);
    QPushButton* confirm = buttons->button(QDialogButtonBox::Ok);
    gui::click(*confirm, confirm->rect().center());
    ASSERT_FALSE(dialog->isVisible());
  }

  void buildRules() {
    const QString soil = "0 -  soil ", grass = "1 - grass, tall", wall = "2 - wall";
    addRule("grow", "Irreversible Flip", soil, grass);
    slideTo("sliderSelectedRuleParam", 0.3);
    choose("listSelectedRuleFacNum", "2");
    choose("listSelectedRuleFacPixel", grass);

    addRule("turn", "Reversible Flip", soil, grass);
    slideTo("sliderSelectedRuleParam", 0.025);
    click("checkSelectedRuleIgnoreEnergy");

    addRule("walk", "Swap", kAny, kAny);
    slideTo("sliderSelectedRuleParam", 1.0);

    addRule("bond", "Pixel-Pixel Interaction", grass, grass);
    slideTo("sliderSelectedRuleParam", -0.75);

    addRule("sleep", "Irreversible Flip", kAny, grass);
    slideTo("sliderSelectedRuleParam", 0.5);
    click("checkSelectedRuleDisabled");

    addRule("shun", "Pixel-Pixel Interaction", wall, kAny);
    slideTo("sliderSelectedRuleParam", 1.5);
    click("checkSelectedRuleDisabled");
  }

  void expectTheSystemThatWasBuilt() {
    LatticeModel& built = model();
    ASSERT_EQ(built.getNumPixelTypes(), 3);
    EXPECT_EQ(built.getPixelName(kSoil), " soil ");
    EXPECT_EQ(built.getPixelName(kGrass), "grass, tall");
    EXPECT_EQ(built.getPixelName(kWall), "wall");
    EXPECT_EQ(built.getPixelImmobile(kWall), 1);
    EXPECT_EQ(built.getPixelMasqueradeAs(kWall), kGrass);
    EXPECT_EQ(well("colorSelectedPixelColor").color(), QColor(0, 0, 0));
    EXPECT_EQ(colorOf(kWall), (Rgb{0x80 / 255.0, 0x40 / 255.0, 0xc0 / 255.0}));
    EXPECT_EQ(built.getPixelPersistence(kGrass), 0.875);
    EXPECT_EQ(built.getPixelField(kGrass), -0.25);
    EXPECT_EQ(built.getPixelAlpha(kSoil), 0.4);

    struct Rule {
      const char* name;
      int type, endA, endB, disabled, ignoreEnergy, facNum, facPixel;
      double parameter;
    };
    constexpr Rule rules[] = {{"grow", kIrreversibleFlip, kSoil, kGrass, 0, 0, 2, kGrass, 0.3},
                              {"turn", kReversibleFlip, kSoil, kGrass, 0, 1, 0, 0, 0.025},
                              {"walk", kSwap, -1, -1, 0, 0, 0, 0, 1.0},
                              {"bond", kPixelPixelInteraction, kGrass, kGrass, 0, 0, 0, 0, -0.75},
                              {"sleep", kIrreversibleFlip, -1, kGrass, 1, 0, 0, 0, 0.5},
                              {"shun", kPixelPixelInteraction, kWall, -1, 1, 0, 0, 0, 1.5}};
    ASSERT_EQ(built.getNumRules(), 6);
    for (int r = 0; r < 6; ++r) {
      SCOPED_TRACE(rules[r].name);
      EXPECT_EQ(built.getRuleName(r), rules[r].name);
      EXPECT_EQ(built.getRuleType(r), rules[r].type);
      EXPECT_EQ(built.getRulePixelA(r), rules[r].endA);
      EXPECT_EQ(built.getRulePixelB(r), rules[r].endB);
      EXPECT_EQ(built.getRuleDisabled(r), rules[r].disabled);
      EXPECT_EQ(built.getRuleIgnoreEnergy(r), rules[r].ignoreEnergy);
      EXPECT_EQ(built.getRuleFacNum(r), rules[r].facNum);
      EXPECT_EQ(built.getRuleFacPixel(r), rules[r].facPixel);
      EXPECT_EQ(built.getRuleParam(r), rules[r].parameter);
    }
    EXPECT_EQ(built.getPixelIntConstant(kGrass, kGrass), -0.75);
    EXPECT_EQ(built.getPixelIntConstant(kWall, kSoil), 0.0);
    EXPECT_EQ(built.getPixelIntConstantBCK(kSoil, kWall), 1.5);
    EXPECT_EQ(built.getPixelIntConstantBCK(kWall, kWall), 1.5);
  }

  QPoint middleOf(Site site) {
    const double spacing = model().varSiteSpacing;
    return gui::pixelAt(model(), (site.first + 0.5) * spacing, (site.second + 0.5) * spacing);
  }
  bool isWall(Site site) { return model().getSiteValue(site.first, site.second) == kWall; }

  /// Holds the brush on a site until it is a wall: an attempt of the run that had read the site before may
  /// write it once more after the first stroke.
  void paint(Site site) {
    gui::drag(model(), middleOf(site));
    EXPECT_TRUE(gui::waitUntil([&] {
      if (!isWall(site)) gui::drag(model(), middleOf(site));
      return isWall(site);
    }));
    painted_.insert(site);
  }

  /// Paints a row of sites twice in one stroke; checks a state during the stroke.
  void stroke(int row, int stateMeanwhile) {
    gui::press(model(), middleOf({3, row}));
    EXPECT_EQ(model().varMyState, stateMeanwhile);
    for (int i = 3; i < 12; ++i) paint({i, row});
    if (stateMeanwhile == kRunning)
      waitForSweeps(3);
    else
      ASSERT_TRUE(loops_.waitForEnd()) << "the last attempt of a sweep may still write a site";
    for (int i = 11; i >= 3; --i) paint({i, row});
    EXPECT_EQ(model().varMyState, stateMeanwhile);
    loops_.during([&] { gui::release(model(), middleOf({3, row})); });
    EXPECT_EQ(model().varMyState, kRunning);
  }

  void waitForSweeps(int count) {
    const auto before = model().sweepsDone();
    ASSERT_TRUE(gui::waitUntil([&] { return model().sweepsDone() >= before + count; }));
  }

  std::set<Site> walls() {
    std::set<Site> found;
    for (int i = 0; i < model().getIMax(); ++i)
      for (int j = 0; j < model().getJMax(); ++j)
        if (isWall({i, j})) found.insert({i, j});
    return found;
  }

  void runAndPaint() {
    key("sliderSimulationSpeed", Qt::Key_End);
    chooseItem("listPaintType", kWall);
    loops_.during([this] { click("buttonRunModel"); });
    waitForSweeps(20);
    stroke(5, kRunning);
    waitForSweeps(20);
    click("checkPauseWhilePaint");
    stroke(9, kPausedForPainting);
    waitForSweeps(20);
    click("buttonStopModel");
    ASSERT_TRUE(loops_.waitForEnd());
    EXPECT_EQ(loops_.numStarted(), 2);
    EXPECT_EQ(walls(), painted_);
  }

  /// The expected report of a fresh window: traces start from the lattice, lists at their first item.
  QStringList reportAsJustOpened() {
    for (int type = 0; type < model().getNumPixelTypes(); ++type) model().reinitHistory(type);
    for (const char* name : {"listPaintType", "listSelectPixelType", "listSelectedRule"}) chooseItem(name, 0);
    return reportSystem(*window_);
  }

  QTemporaryDir folder_;
  RunLoopThreads loops_;
  std::set<Site> painted_;
};

TEST_F(WholeSystem, BuiltByHandRunPaintedAndSavedIsTheSameInASecondApplication) {
  ASSERT_FALSE(enabled("buttonRunModel"));
  ASSERT_NO_FATAL_FAILURE(buildTypes());
  ASSERT_NO_FATAL_FAILURE(buildRules());
  ASSERT_NO_FATAL_FAILURE(expectTheSystemThatWasBuilt());
  ASSERT_NO_FATAL_FAILURE(runAndPaint());
  ASSERT_NO_FATAL_FAILURE(expectTheSystemThatWasBuilt());
  ASSERT_TRUE(gui::choosePath(get<QPushButton>("buttonSaveSystem"), folder_.filePath("meadow")));

  const QString saved = folder_.filePath("meadow.quorvane"), again = folder_.filePath("again.quorvane");
  const ProgramResult second = runProgram(WINDOW_SESSION, {saved, again});
  ASSERT_EQ(second.status, 0);
  EXPECT_EQ(contentOf(again), contentOf(saved));

  const QStringList expected = reportAsJustOpened();
  const QStringList found = QString::fromLatin1(second.out).split('\n', Qt::SkipEmptyParts);
  ASSERT_EQ(found.size(), expected.size());
  for (qsizetype line = 0; line < expected.size(); ++line) EXPECT_EQ(found[line], expected[line]);
}

}  // namespace
}  // namespace quorvane
