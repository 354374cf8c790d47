#include <QTemporaryDir>
#include <QTest>

#include "FilePanel.h"
#include "Log.h"
#include "ProgramRun.h"
#include "WindowTest.h"
#include "document/ModelDocument.h"

namespace quorvane {
namespace {

class DocumentDialogs : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    ASSERT_TRUE(folder_.isValid());
  }

  QString path(const QString& name) const { return folder_.filePath(name); }

  void choosePath(const char* button, const QString& file) {
    EXPECT_TRUE(gui::choosePath(get<QPushButton>(button), file));
  }
  void withPanel(const char* button, const std::function<void(QFileDialog&)>& deal) {
    EXPECT_TRUE(gui::withFilePanel(get<QPushButton>(button), deal));
  }
  void cancel(const char* button) {
    withPanel(button, [](QFileDialog& panel) { QTest::keyClick(&panel, Qt::Key_Escape); });
  }
  /// Saves under a name and answers the question of the panel. False if there was none.
  bool saveAndAnswer(const QString& file, QMessageBox::StandardButton answer) {
    const gui::MessageAnswer answered(answer);
    EXPECT_EQ(gui::choosePath(get<QPushButton>("buttonSaveSystem"), file), answer == QMessageBox::Yes);
    return answered.text().contains("run.1.quorvane already exists");
  }

  /// A document of a model of 20 by 30 sites, 3 types and 2 rules.
  QString writeSample() {
    const auto other = std::make_unique<LatticeModel>();
    other->awakeFromNib();
    other->initializeLatticeModel(3, 20, 30);
    other->setPixelName(1, "wall");
    other->setPixelField(1, 0.123456789);
    other->makeNewRule("grow", kIrreversibleFlip, 0, 1);
    other->setRuleParam(0, 0.75);
    other->setRuleFacNum(0, 2);
    other->setRuleFacPixel(0, kAnyPixelType);
    other->makeNewRule("bond", kPixelPixelInteraction, 1, 1);
    other->setRuleParam(1, -1.5);
    EXPECT_TRUE(saveDocument(*other, path("sample.quorvane").toStdString()).saved);
    return path("sample.quorvane");
  }
  void write(const QString& file, const QByteArray& content) const {
    QFile opened(file);
    ASSERT_TRUE(opened.open(QIODevice::WriteOnly));
    opened.write(content);
  }

  QTemporaryDir folder_;
};

TEST_F(DocumentDialogs, ArePanelsForQuorvaneDocumentsAlone) {
  withPanel("buttonOpenSystem", [](QFileDialog& panel) {
    EXPECT_TRUE(panel.isModal());
    EXPECT_EQ(panel.acceptMode(), QFileDialog::AcceptOpen);
    EXPECT_EQ(panel.nameFilters(), QStringList({"Quorvane documents (*.quorvane)"}));
    panel.reject();
  });
  initialise();
  withPanel("buttonSaveSystem", [](QFileDialog& panel) {
    EXPECT_EQ(panel.acceptMode(), QFileDialog::AcceptSave);
    EXPECT_EQ(panel.nameFilters(), QStringList({"Quorvane documents (*.quorvane)"}));
    EXPECT_EQ(panel.defaultSuffix(), "quorvane");
    panel.reject();
  });
}

TEST_F(DocumentDialogs, CancellingLogsItsLineAndChangesNothing) {
  Log log;
  cancel("buttonOpenSystem");
  EXPECT_EQ(log.lines(), QStringList({"readUsingOpenPanel cancelled"}));
  EXPECT_EQ(model().varMyState, kNotInitialised);
  initialise();
  cancel("buttonSaveSystem");
  EXPECT_EQ(log.lines(), QStringList({"readUsingOpenPanel cancelled", "writeUsingSavePanel cancelled"}));
  EXPECT_EQ(window_->windowTitle(), "Quorvane");
}

TEST_F(DocumentDialogs, OpeningShowsTheWholeDocument) {
  Log log;
  choosePath("buttonOpenSystem", writeSample());
  EXPECT_EQ(log.lines(), QStringList());
  EXPECT_EQ(model().varMyState, kStopped);
  EXPECT_EQ(model().getIMax(), 20);
  EXPECT_EQ(model().getJMax(), 30);
  EXPECT_EQ(model().getPixelIntConstant(1, 1), -1.5);
  EXPECT_EQ(get<Stepper>("stepperNumPixelTypes").value(), 3);
  EXPECT_EQ(text("textNumPixelTypes"), "3");
  EXPECT_EQ(slider("sliderWidthHeight").intValue(), 20);
  EXPECT_EQ(text("textWidthHeight"), "20");
  EXPECT_EQ(items("listSelectPixelType"), QStringList({"0 - Pixel", "1 - wall", "2 - Pixel"}));
  EXPECT_EQ(items("listSelectedRule"), QStringList({"0 - grow", "1 - bond"}));
  EXPECT_EQ(list("listSelectedRule").currentIndex(), 0);
  EXPECT_EQ(text("textSelectedRuleName"), "grow");
  EXPECT_EQ(text("textSelectedRuleParam"), "0.750");
  EXPECT_EQ(list("listSelectedRuleFacNum").currentText(), "2");
  EXPECT_EQ(list("listSelectedRuleFacPixel").currentIndex(), -1);
  EXPECT_FALSE(enabled("buttonOpenSystem"));
  EXPECT_FALSE(enabled("buttonInitialiseModel"));
  EXPECT_TRUE(enabled("buttonRunModel"));
  EXPECT_EQ(window_->windowTitle(), "sample.quorvane - Quorvane");
  EXPECT_EQ(text("statusLine"), "Stopped  ·  0 sweeps  ·  20 × 30 sites");
}

TEST_F(DocumentDialogs, SavingWritesWhatWasOpened) {
  const QString sample = writeSample();
  choosePath("buttonOpenSystem", sample);
  choosePath("buttonSaveSystem", path("copy"));
  EXPECT_EQ(contentOf(path("copy.quorvane")), contentOf(sample));
  EXPECT_EQ(window_->windowTitle(), "copy.quorvane - Quorvane");
}

TEST_F(DocumentDialogs, SavingUnderANameWithADotWritesADocumentThatOpenLists) {
  choosePath("buttonOpenSystem", writeSample());
  choosePath("buttonSaveSystem", path("run.1"));
  EXPECT_FALSE(QFile::exists(path("run.1")));
  EXPECT_EQ(contentOf(path("run.1.quorvane")), contentOf(path("sample.quorvane")));
  EXPECT_EQ(window_->windowTitle(), "run.1.quorvane - Quorvane");
  choosePath("buttonSaveSystem", path("whole.quorvane"));
  EXPECT_TRUE(QFile::exists(path("whole.quorvane")));
}

TEST_F(DocumentDialogs, SavingUnderANameWithADotAsksBeforeItReplacesADocument) {
  choosePath("buttonOpenSystem", writeSample());
  write(path("run.1.quorvane"), "as it was");
  Log log;
  EXPECT_TRUE(saveAndAnswer(path("run.1"), QMessageBox::No));
  EXPECT_EQ(log.lines(), QStringList({"writeUsingSavePanel cancelled"}));
  EXPECT_EQ(contentOf(path("run.1.quorvane")), "as it was");
  EXPECT_EQ(window_->windowTitle(), "sample.quorvane - Quorvane");
  EXPECT_TRUE(saveAndAnswer(path("run.1"), QMessageBox::Yes));
  EXPECT_EQ(log.lines().size(), 1);
  EXPECT_EQ(contentOf(path("run.1.quorvane")), contentOf(path("sample.quorvane")));
  EXPECT_EQ(window_->windowTitle(), "run.1.quorvane - Quorvane");
}

TEST_F(DocumentDialogs, SavingIncludesANameThatIsStillBeingTyped) {
  choosePath("buttonOpenSystem", writeSample());
  type("textSelectedRuleName", "sprout");
  // As on desktops where clicking a button does not move the focus.
  control("buttonSaveSystem").setFocusPolicy(Qt::TabFocus);
  choosePath("buttonSaveSystem", path("typed"));
  EXPECT_TRUE(contentOf(path("typed.quorvane")).contains("\nsprout\n"));
}

TEST_F(DocumentDialogs, SavingWorksWhileTheModelRuns) {
  initialise();
  click("buttonRunModel");
  choosePath("buttonSaveSystem", path("running"));
  EXPECT_EQ(model().varMyState, kRunning);
  click("buttonStopModel");
  EXPECT_EQ(contentOf(path("running.quorvane")).count('\n'), 3 + 124 * 104 + 9 * 2 + 1);
}

TEST_F(DocumentDialogs, ARefusedDocumentChangesNothingAndSaysWhere) {
  write(path("big.quorvane"), "300\n20\n2\n");
  Log log;
  choosePath("buttonOpenSystem", path("big.quorvane"));
  ASSERT_EQ(log.lines().size(), 1);
  EXPECT_TRUE(log.lines()[0].startsWith("big.quorvane: line 1: ")) << log.lines()[0].toStdString();
  EXPECT_EQ(text("statusLine"), "No model yet  ·  " + log.lines()[0]);
  EXPECT_EQ(model().varMyState, kNotInitialised);
  EXPECT_EQ(text("textWidthHeight"), "100");
  EXPECT_EQ(text("textNumPixelTypes"), "2");
  EXPECT_TRUE(enabled("buttonOpenSystem"));
  EXPECT_FALSE(enabled("buttonRunModel"));
  EXPECT_EQ(window_->windowTitle(), "Quorvane");
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(DocumentDialogs, ADocumentThatIsCutShortLeavesTheControlsDisabled) {
  const QByteArray whole = contentOf(writeSample());
  write(path("short.quorvane"), whole.left(200));
  Log log;
  choosePath("buttonOpenSystem", path("short.quorvane"));
  ASSERT_EQ(log.lines().size(), 1);
  EXPECT_TRUE(log.lines()[0].startsWith("short.quorvane: line ")) << log.lines()[0].toStdString();
  EXPECT_TRUE(text("statusLine").endsWith(log.lines()[0]));
  EXPECT_EQ(model().getIMax(), 20);
  EXPECT_EQ(text("textWidthHeight"), "20");
  EXPECT_EQ(text("textNumPixelTypes"), "3");
  EXPECT_TRUE(enabled("buttonOpenSystem"));
  EXPECT_TRUE(enabled("buttonInitialiseModel"));
  EXPECT_FALSE(enabled("buttonRunModel"));
  EXPECT_EQ(window_->windowTitle(), "Quorvane");
  choosePath("buttonOpenSystem", path("sample.quorvane"));
  EXPECT_EQ(model().getNumRules(), 2);
  EXPECT_EQ(text("statusLine"), "Stopped  ·  0 sweeps  ·  20 × 30 sites");
}

TEST_F(DocumentDialogs, ADocumentThatIsCutShortCanBePaintedAndSweptWithTheControlsDisabled) {
  const QByteArray whole = contentOf(writeSample());
  write(path("short.quorvane"), whole.left(200));
  choosePath("buttonOpenSystem", path("short.quorvane"));
  gui::click(model(), {20, 20});
  QTest::keyClick(window_.get(), Qt::Key_Right, Qt::ControlModifier);
  EXPECT_EQ(model().sweepsDone(), 1);
  EXPECT_TRUE(gui::waitUntil([this] {
    return control("plotPopulations").accessibleDescription().endsWith("no type in red, no type in green.");
  })) << control("plotPopulations").accessibleDescription().toStdString();
}

TEST_F(DocumentDialogs, SaveSuggestsTheNameOfTheDocument) {
  choosePath("buttonOpenSystem", writeSample());
  withPanel("buttonSaveSystem", [](QFileDialog& panel) {
    EXPECT_EQ(panel.findChild<QLineEdit*>("fileNameEdit")->text(), "sample.quorvane");
    panel.reject();
  });
}

TEST_F(DocumentDialogs, AFileThatIsNotAsciiHasNoLines) {
  write(path("odd.quorvane"), "20\n20\n2\n\xC3\xA9\n");
  Log log;
  choosePath("buttonOpenSystem", path("odd.quorvane"));
  EXPECT_EQ(log.lines(), QStringList({"zAryOfLines count = 0"}));
  EXPECT_EQ(model().varMyState, kNotInitialised);
  EXPECT_TRUE(text("statusLine").contains("odd.quorvane: cannot be read as a document: line 4, column 1"));
}

TEST_F(DocumentDialogs, ASaveThatFailsLogsItsLineAndKeepsTheFormerTitle) {
  choosePath("buttonOpenSystem", writeSample());
  model().setPixelName(0, "caf\xC3\xA9");
  write(path("kept.quorvane"), "as it was");
  Log log;
  const gui::MessageAnswer replace(QMessageBox::Yes);
  choosePath("buttonSaveSystem", path("kept.quorvane"));
  EXPECT_EQ(log.lines(), QStringList({"writeUsingSavePanel failed"}));
  EXPECT_EQ(contentOf(path("kept.quorvane")), "as it was");
  EXPECT_EQ(window_->windowTitle(), "sample.quorvane - Quorvane");
  EXPECT_TRUE(text("statusLine").contains("kept.quorvane: was not saved"))
      << text("statusLine").toStdString();
}

TEST_F(DocumentDialogs, ALatticeOneSiteWideCanBeRemade) {
  write(path("thin.quorvane"), "1\n1\n1\n0\nPixel\n0\n-1\n0\n0\n0\n0\n1\n0\n0\n");
  choosePath("buttonOpenSystem", path("thin.quorvane"));
  EXPECT_EQ(text("textWidthHeight"), "1");
  click("buttonRemakeModel");
  EXPECT_GE(model().getIMax(), 1);
  EXPECT_GE(model().getJMax(), 1);
}

TEST_F(DocumentDialogs, OpenMovesTheFocusToRun) {
  choosePath("buttonOpenSystem", writeSample());
  EXPECT_TRUE(gui::waitUntil([this] { return control("buttonRunModel").hasFocus(); }));
}

TEST_F(DocumentDialogs, TheOpenedLatticeIsDrawn) {
  choosePath("buttonOpenSystem", writeSample());
  EXPECT_TRUE(gui::waitUntil([this] { return !gui::screenOf(*window_).copy(model().geometry()).allGray(); }));
}

}  // namespace
}  // namespace quorvane
