#include <QFile>
#include <QTemporaryDir>

#include "FilePanel.h"
#include "MenuSupport.h"
#include "ProgramRun.h"

namespace quorvane {
namespace {

class PlotMenuTest : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    ASSERT_TRUE(folder_.isValid());
  }
  QWidget& plot() { return control("plotPopulations"); }
  QString path(const QString& name) const { return folder_.filePath(name); }
  void oneSweep() { QTest::keyClick(window_.get(), Qt::Key_Right, Qt::ControlModifier); }
  QMenu* menu() {
    gui::rightClick(plot());
    return gui::openMenu();
  }
  void saveShares(const QString& file) {
    EXPECT_TRUE(gui::withFilePanel([this] { gui::choose(*menu(), "actionSaveShares"); },
                                   [&](QFileDialog& panel) {
                                     EXPECT_EQ(panel.nameFilters(), QStringList({"Tables (*.csv)"}));
                                     EXPECT_TRUE(gui::acceptFilePanel(panel, file));
                                   }));
  }
  std::string row() {
    int sites[2] = {};
    for (int i = 0; i < model().getIMax(); ++i)
      for (int j = 0; j < model().getJMax(); ++j) ++sites[model().getSiteValue(i, j)];
    return std::to_string(model().sweepsDone()) + ',' + std::to_string(sites[0]) + ',' +
           std::to_string(sites[1]);
  }

  QTemporaryDir folder_;
};

TEST_F(PlotMenuTest, SavesThePointsShownAsATable) {
  initialise();
  enter("textPixelName", "wall, old");
  addRule("grow", "Irreversible Flip", "1 - Pixel", "0 - wall, old");
  model().setRuleParam(0, 0.5);
  control("buttonRunModel").setFocus();
  std::string expected = "sweep,\"wall, old\",\"Pixel\"\n";
  for (int sweep = 0; sweep < 3; ++sweep) {
    oneSweep();
    expected += row() + "\n";
  }
  saveShares(path("shares"));
  EXPECT_EQ(contentOf(path("shares.csv")).toStdString(), expected);
}

TEST_F(PlotMenuTest, OffersNothingWithoutAPoint) {
  initialise();
  QMenu* opened = menu();
  ASSERT_NE(opened, nullptr);
  EXPECT_EQ(opened->accessibleName(), "Shares of the lattice");
  EXPECT_EQ(gui::entriesOf(*opened), (QList<QPair<QString, bool>>{{"Save Shares…", false}}));
  opened->close();
  oneSweep();
  opened = menu();
  ASSERT_NE(opened, nullptr);
  EXPECT_EQ(gui::entriesOf(*opened), (QList<QPair<QString, bool>>{{"Save Shares…", true}}));
  opened->close();
}

TEST_F(PlotMenuTest, IsReachedByTheKeyboardAndThePlotShowsItsFocus) {
  initialise();
  oneSweep();
  const QImage before = plot().grab().toImage();
  control("listNewRulePixelB").setFocus();
  QTest::keyClick(&control("listNewRulePixelB"), Qt::Key_Tab);
  ASSERT_TRUE(plot().hasFocus());
  EXPECT_NE(plot().grab().toImage(), before);
  gui::pressMenuKey(plot());
  QMenu* opened = gui::openMenu();
  ASSERT_NE(opened, nullptr);
  EXPECT_TRUE(gui::withFilePanel(
      [&] {
        QTest::keyClick(opened, Qt::Key_Down);
        QTest::keyClick(opened, Qt::Key_Return);
      },
      [](QFileDialog& panel) { panel.reject(); }));
}

TEST_F(PlotMenuTest, AFailureIsOneLineInTheStatusLine) {
  initialise();
  oneSweep();
  ASSERT_TRUE(QFile::link(path("missing/shares.csv"), path("shares.csv")));
  saveShares(path("shares.csv"));
  EXPECT_TRUE(text("statusLine").contains("shares.csv: was not saved: ")) << text("statusLine").toStdString();
  EXPECT_FALSE(QFile::exists(path("shares.csv")));
}

}  // namespace
}  // namespace quorvane
