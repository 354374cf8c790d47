#include <gmock/gmock.h>

#include <QElapsedTimer>
#include <QFileDialog>
#include <QTest>

#include "FilePanel.h"
#include "KeptFolderSupport.h"
#include "ProgramRun.h"
#include "WindowTest.h"
#include "app/DocumentPreview.h"
#include "app/KeptFolder.h"
#include "app/WorkKeeper.h"

namespace quorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class WorkKeeperTest : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    startKeeper();
  }
  void TearDown() override {
    keeper_.reset();
    WindowTest::TearDown();
  }

  void startKeeper(std::chrono::milliseconds period = WorkKeeper::kPeriod) {
    keeper_.reset();
    keeper_ = std::make_unique<WorkKeeper>(*window_, kept_.path(), period);
  }
  void startAnew() {
    keeper_.reset();
    window_.reset();
    WindowTest::SetUp();
    startKeeper();
    keeper_->tellOfEarlierWork();
  }
  bool keep() { return keeper_->keep(); }
  std::string nameOfCopy() const { return keeper_->copy().path().filename(); }
  void expectKept() {
    EXPECT_TRUE(keep());
    EXPECT_THAT(kept_.names(), ElementsAre(nameOfCopy()));
    EXPECT_TRUE(kept_.read(nameOfCopy()) == writeDocument(model()));
  }
  void expectNothingKept() {
    EXPECT_FALSE(keep());
    EXPECT_THAT(kept_.names(), IsEmpty());
  }
  void paintALine() {
    // The view knows the positions of its sites only once it is drawn.
    gui::frameOf(model());
    gui::press(model(), {20, 20});
    for (int x = 25; x < 600; x += 5) gui::drag(model(), {x, 20});
    gui::release(model(), {600, 20});
  }
  QString file(const QString& name) const { return folder_.filePath(name); }
  QString example() const { return QString(EXAMPLES) + "/voters.quorvane"; }
  void open(const QString& path) { EXPECT_TRUE(gui::choosePath(get<QPushButton>("buttonOpenSystem"), path)); }
  void save(const QString& path) { EXPECT_TRUE(gui::choosePath(get<QPushButton>("buttonSaveSystem"), path)); }
  void withPanel(const char* button, const std::function<void(QFileDialog&)>& deal) {
    EXPECT_TRUE(gui::withFilePanel(get<QPushButton>(button), deal));
  }

  const QTemporaryDir folder_;
  const TemporaryKeptFolder kept_{};
  const Variable state_{"XDG_STATE_HOME", kept_.state().string()};
  std::unique_ptr<WorkKeeper> keeper_;
};

TEST_F(WorkKeeperTest, KeepsNothingOfAnUnusedWindow) {
  expectNothingKept();
  EXPECT_FALSE(std::filesystem::exists(kept_.path()));
}

TEST_F(WorkKeeperTest, KeepsNothingOfASystemThatWasOnlyInitialised) {
  initialise();
  // Changes that a document does not store are not kept.
  key("sliderSimulationSpeed", Qt::Key_End);
  click("checkPauseWhilePaint");
  expectNothingKept();
}

TEST_F(WorkKeeperTest, KeepsEveryKindOfChange) {
  initialise();
  const std::function<void()> changes[] = {
      [this] { paintALine(); },
      [this] { click("buttonRemakeModel"); },
      [this] { click("buttonAddNewPixel"); },
      [this] { enter("textPixelName", "Water"); },
      [this] { key("sliderPixelField", Qt::Key_Right); },
      [this] { key("sliderSelectedPixelTrans", Qt::Key_Left); },
      [this] { click("checkImmobilePixel"); },
      [this] { addRule("Turn", "Irreversible Flip", "1 - Pixel", "0 - Pixel"); },
      [this] { key("sliderSelectedRuleParam", Qt::Key_End); },
      [this] { QTest::keyClick(window_.get(), Qt::Key_Right, Qt::ControlModifier); },
      [this] { click("checkSelectedRuleDisabled"); },
      [this] { click("buttonDelRule"); },
  };
  std::string before = writeDocument(model());
  for (const auto& change : changes) {
    change();
    SCOPED_TRACE(&change - changes);
    ASSERT_TRUE(writeDocument(model()) != before);
    expectKept();
    before = writeDocument(model());
  }
}

TEST_F(WorkKeeperTest, DiscardsTheCopyOfAChangeThatWasUndone) {
  initialise();
  click("checkImmobilePixel");
  expectKept();
  click("checkImmobilePixel");
  expectNothingKept();
}

TEST_F(WorkKeeperTest, WritesOnlyIfTheSystemHasChangedSinceTheLastCopy) {
  initialise();
  paintALine();
  expectKept();
  const std::string first = nameOfCopy();
  expectKept();
  EXPECT_EQ(nameOfCopy(), first);
  std::filesystem::remove(keeper_->copy().path());
  expectKept();
}

TEST_F(WorkKeeperTest, KeepsAtItsInterval) {
  startKeeper(std::chrono::milliseconds(20));
  initialise();
  paintALine();
  EXPECT_TRUE(gui::waitUntil(
      [this] { return keeper_->copy().isThere() && kept_.read(nameOfCopy()) == writeDocument(model()); }));
  EXPECT_EQ(WorkKeeper::kPeriod, std::chrono::minutes(2));
}

TEST_F(WorkKeeperTest, KeepsATypedNameAtTheEnd) {
  initialise();
  type("textPixelName", "Half a na");
  expectNothingKept();
  EXPECT_TRUE(keeper_->keepAtEnd());
  EXPECT_THAT(kept_.read(nameOfCopy()), testing::HasSubstr("\nHalf a na\n"));
}

TEST_F(WorkKeeperTest, SavingRemovesTheCopy) {
  initialise();
  paintALine();
  expectKept();
  save(file("saved.quorvane"));
  EXPECT_THAT(kept_.names(), IsEmpty());
  expectNothingKept();
  paintALine();
  click("checkImmobilePixel");
  expectKept();
}

TEST_F(WorkKeeperTest, ASaveThatFailsLeavesTheCopy) {
  initialise();
  paintALine();
  expectKept();
  ASSERT_TRUE(QDir(folder_.path()).mkdir("gone"));
  withPanel("buttonSaveSystem", [this](QFileDialog& panel) {
    gui::enterPath(panel, file("gone/model.quorvane"));
    QDir(file("gone")).removeRecursively();
    QTest::keyClick(&panel, Qt::Key_Return);
    if (panel.isVisible()) panel.reject();
  });
  expectKept();
}

TEST_F(WorkKeeperTest, SavingOverTheCopyKeepsTheDocument) {
  initialise();
  paintALine();
  expectKept();
  const std::string name = nameOfCopy();
  const gui::MessageAnswer replace(QMessageBox::Yes);
  save(QString::fromStdString(keeper_->copy().path().string()));
  EXPECT_THAT(kept_.names(), ElementsAre(name));
  EXPECT_TRUE(kept_.read(name) == writeDocument(model()));
}

TEST_F(WorkKeeperTest, KeepsNothingOfADocumentThatWasOnlyOpened) {
  open(example());
  expectNothingKept();
  click("checkImmobilePixel");
  expectKept();
}

TEST_F(WorkKeeperTest, KeepsNothingOfADocumentThatEndsEarly) {
  const std::string cut = contentOf(example()).left(9000).toStdString();
  kept_.write("cut.quorvane", cut);
  open(QString::fromStdString((kept_.path() / "cut.quorvane").string()));
  ASSERT_GT(model().getIMax(), 0);
  EXPECT_FALSE(keep());
  EXPECT_THAT(kept_.names(), ElementsAre("cut.quorvane"));
}

TEST_F(WorkKeeperTest, KeepsTheCopyOfASystemThatOpeningReplaces) {
  kept_.write("cut.quorvane", contentOf(example()).left(9000).toStdString());
  open(QString::fromStdString((kept_.path() / "cut.quorvane").string()));
  paintALine();
  EXPECT_TRUE(keep());
  const std::string document = writeDocument(model()), name = nameOfCopy();
  open(example());
  EXPECT_FALSE(keep());
  EXPECT_TRUE(kept_.read(name) == document);
}

TEST_F(WorkKeeperTest, KeepsTheCurrentStateOfARun) {
  open(example());
  key("sliderSimulationSpeed", Qt::Key_End);
  click("buttonRunModel");
  ASSERT_TRUE(gui::waitUntil([this] { return model().sweepsDone() > 0; }));
  EXPECT_TRUE(keep());
  const auto other = std::make_unique<LatticeModel>();
  other->awakeFromNib();
  EXPECT_EQ(openDocument(*other, keeper_->copy().path()).status, OpenStatus::kOpened);
  // After a save the run continues, so there are changes to keep again.
  save(file("saved.quorvane"));
  const auto sweeps = model().sweepsDone();
  ASSERT_TRUE(gui::waitUntil([&] { return model().sweepsDone() > sweeps + 1; }));
  EXPECT_TRUE(keep());
  click("buttonStopModel");
}

TEST_F(WorkKeeperTest, ReportsOnceThatNothingCanBeKept) {
  keeper_ = std::make_unique<WorkKeeper>(*window_, "/dev/null/quorvane");
  testing::internal::CaptureStderr();
  initialise();
  EXPECT_FALSE(keep());
  paintALine();
  EXPECT_FALSE(keep());
  EXPECT_FALSE(keeper_->keepAtEnd());
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "Quorvane cannot keep unsaved work in /dev/null/quorvane: Not a directory\n");
}

TEST_F(WorkKeeperTest, KeepingTheLargestLatticeTakesLessThanHalfASecond) {
  const QString largest = QString(EXAMPLES) + "/forest-fire.quorvane";
  open(largest);
  window_->model().initializeLatticeModel(10, kMaxSide, kMaxSide);
  std::vector<qint64> microseconds;
  for (int i = 0; i < 10; ++i) {
    paintALine();
    model().setPixelField(0, i);
    QElapsedTimer clock;
    clock.start();
    ASSERT_TRUE(keep());
    microseconds.push_back(clock.nsecsElapsed() / 1000);
  }
  std::sort(microseconds.begin(), microseconds.end());
  std::printf("256 x 256 sites are kept in %lld us, the slowest time of ten in %lld us\n",
              static_cast<long long>(microseconds[5]), static_cast<long long>(microseconds[9]));
  RecordProperty("microseconds_to_keep", static_cast<int>(microseconds[5]));
  // A frame takes 17 ms; busy disks need longer.
  EXPECT_LT(microseconds[0], 500'000);
}

TEST_F(WorkKeeperTest, TheNextStartReportsTheCopyAndOpenBeginsThere) {
  initialise();
  paintALine();
  const std::string document = writeDocument(model());
  expectKept();
  const QString name = QString::fromStdString(nameOfCopy());
  startAnew();
  EXPECT_EQ(text("statusLine"), "No model yet  ·  Unsaved work was kept: Open... begins with " + name);
  EXPECT_GE(control("statusLine").width(),
            control("statusLine").fontMetrics().horizontalAdvance(text("statusLine")));
  withPanel("buttonOpenSystem", [&](QFileDialog& panel) {
    EXPECT_TRUE(gui::waitUntil([&] { return panel.directory().path().toStdString() == kept_.path(); }));
    EXPECT_EQ(panel.findChild<QLineEdit*>("fileNameEdit")->text(), name);
    const auto* preview = panel.findChild<DocumentPreview*>("preview");
    EXPECT_TRUE(gui::waitUntil([&] { return preview->shown().endsWith("/" + name); }));
    EXPECT_TRUE(panel.sidebarUrls().contains(QUrl::fromLocalFile(panel.directory().path())));
    QTest::keyClick(panel.findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
    EXPECT_FALSE(panel.isVisible());
    if (panel.isVisible()) panel.reject();
  });
  EXPECT_TRUE(writeDocument(model()) == document);
  // It is listed as long as it is one of the last ones, opened or not, changed or not.
  EXPECT_FALSE(keep());
  click("checkImmobilePixel");
  EXPECT_TRUE(keep());
  EXPECT_TRUE(kept_.read(name.toStdString()) == document);
  EXPECT_EQ(keptCopies(kept_.path()).size(), 2u);
}

TEST_F(WorkKeeperTest, ReportsTheCopyOnlyOnce) {
  for (const int second : {1, 2, 3}) {
    kept_.write(copyOf(second), "a document");
    kept_.age(copyOf(second), std::chrono::seconds(100 - second));
  }
  startAnew();
  EXPECT_TRUE(text("statusLine").endsWith(QString::fromStdString(copyOf(3)) + ", and has 2 more"))
      << text("statusLine").toStdString();
  startAnew();
  EXPECT_TRUE(text("statusLine").startsWith("No model yet: ")) << text("statusLine").toStdString();
  withPanel("buttonOpenSystem", [&](QFileDialog& panel) {
    EXPECT_EQ(panel.directory().path(), EXAMPLES);
    EXPECT_EQ(panel.sidebarUrls().last(), QUrl::fromLocalFile(QString::fromStdString(kept_.path().string())));
    panel.reject();
  });
}

TEST_F(WorkKeeperTest, PanelsDoNotListTheFolderOfKeptWorkIfThereIsNone) {
  const QUrl place = QUrl::fromLocalFile(QString::fromStdString(kept_.path().string()));
  kept_.write("other", "");
  withPanel("buttonOpenSystem", [&](QFileDialog& panel) {
    EXPECT_FALSE(panel.sidebarUrls().contains(place));
    panel.reject();
  });
}

TEST_F(WorkKeeperTest, SaveDoesNotStartInTheFolderOfKeptWork) {
  kept_.write(copyOf(1), contentOf(example()).toStdString());
  open(QString::fromStdString((kept_.path() / copyOf(1)).string()));
  withPanel("buttonSaveSystem", [](QFileDialog& panel) {
    EXPECT_EQ(panel.directory().path(), QDir::currentPath());
    panel.reject();
  });
}

}  // namespace
}  // namespace quorvane
