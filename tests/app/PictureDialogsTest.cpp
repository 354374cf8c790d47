#include <sys/stat.h>

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTimer>

#include "FilePanel.h"
#include "MenuSupport.h"
#include "OutputSupport.h"
#include "ProgramRun.h"

namespace quorvane {
namespace {

class PictureDialogsTest : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    ASSERT_TRUE(folder_.isValid());
  }
  QString path(const QString& name) const { return folder_.filePath(name); }
  void press(int key) {
    QTest::keyClick(&window(), static_cast<Qt::Key>(key), Qt::ControlModifier | Qt::ShiftModifier);
  }
  /// The window that has the focus.
  QWidget& window() { return model().isWindow() ? static_cast<QWidget&>(model()) : *window_; }
  void withPanel(const std::function<void(QFileDialog&)>& deal) {
    EXPECT_TRUE(gui::withFilePanel([this] { press(Qt::Key_P); }, deal));
  }
  void savePicture(const QString& file, int pixelsASite = 0) {
    withPanel([&](QFileDialog& panel) {
      if (pixelsASite > 0) setPixels(panel, pixelsASite);
      EXPECT_TRUE(gui::acceptFilePanel(panel, file));
    });
  }
  static QSpinBox& pixelsIn(QFileDialog& panel) { return *gui::child<QSpinBox>(panel, "pixelsASite"); }
  static void setPixels(QFileDialog& panel, int pixels) {
    QSpinBox& field = pixelsIn(panel);
    field.setFocus();
    field.selectAll();
    QTest::keyClicks(&field, QString::number(pixels));
    EXPECT_EQ(field.value(), pixels);
  }
  void oneSweep() { QTest::keyClick(&window(), Qt::Key_Right, Qt::ControlModifier); }
  void saveDocumentAs(const QString& file) {
    ASSERT_TRUE(gui::choosePath(get<QPushButton>("buttonSaveSystem"), file));
  }
  Image read(const QString& file) { return readPng(file.toStdString()); }
  std::vector<Text> texts(const QString& file) { return textsOf(file.toStdString()); }

  QTemporaryDir folder_;
};

void expectSamePixels(const Image& a, const Image& b) {
  ASSERT_EQ(a.width, b.width);
  ASSERT_EQ(a.height, b.height);
  EXPECT_TRUE(a.rgb == b.rgb);
}

TEST_F(PictureDialogsTest, ASavedPictureEqualsTheRunners) {
  initialise(3);
  oneSweep();
  saveDocumentAs(path("sample.quorvane"));
  for (const int pixels : {1, 4, 9}) {
    savePicture(path("window.png"), pixels);
    ASSERT_EQ(runProgram(BATCH, {path("sample.quorvane"), "--sweeps", "0", "--picture", path("runner.png"),
                                 "--scale", QString::number(pixels)})
                  .status,
              0);
    expectSamePixels(read(path("window.png")), read(path("runner.png")));
    QFile::remove(path("window.png"));
  }
}

TEST_F(PictureDialogsTest, APictureDescribesItselfInItsTextFields) {
  initialise();
  for (int sweep = 0; sweep < 3; ++sweep) oneSweep();
  savePicture(path("first"));
  const Text software = {"Software", "Quorvane " QUORVANE_VERSION};
  EXPECT_EQ(texts(path("first.png")), std::vector<Text>({software, {"Sweeps", "3"}}));
  const QString name = QString::fromUtf8("café.quorvane");
  saveDocumentAs(path(name));
  oneSweep();
  savePicture(path("second"));
  EXPECT_EQ(texts(path("second.png")),
            std::vector<Text>({software, {"Sweeps", "4"}, {"Document", name.toStdString()}}));
}

TEST_F(PictureDialogsTest, TheDocumentIsTheOneInTheTitle) {
  ASSERT_TRUE(gui::choosePath(get<QPushButton>("buttonOpenSystem"),
                              QString(EXAMPLES) + "/phase-separation.quorvane"));
  savePicture(path("picture"));
  EXPECT_TRUE(window_->windowTitle().startsWith("phase-separation.quorvane"));
  EXPECT_EQ(texts(path("picture.png")).back(), Text("Document", "phase-separation.quorvane"));
}

TEST_F(PictureDialogsTest, ThePanelKeepsTheScaleAndShowsTheResultingSize) {
  initialise();
  withPanel([&](QFileDialog& panel) {
    EXPECT_TRUE(panel.isModal());
    EXPECT_EQ(panel.nameFilters(), QStringList({"Pictures (*.png)"}));
    EXPECT_EQ(pixelsIn(panel).value(), 4);
    EXPECT_EQ(pixelsIn(panel).minimum(), 1);
    EXPECT_EQ(pixelsIn(panel).maximum(), 32);
    EXPECT_EQ(gui::child<QLabel>(panel, "sizeOfPicture")->text(), "496 × 416 pixels");
    setPixels(panel, 7);
    EXPECT_EQ(gui::child<QLabel>(panel, "sizeOfPicture")->text(), "868 × 728 pixels");
    panel.reject();
  });
  withPanel([&](QFileDialog& panel) {
    EXPECT_EQ(pixelsIn(panel).value(), 4) << "what was cancelled is not kept";
    panel.reject();
  });
  savePicture(path("picture"), 7);
  withPanel([&](QFileDialog& panel) {
    EXPECT_EQ(pixelsIn(panel).value(), 7);
    EXPECT_EQ(panel.directory(), QDir(folder_.path()));
    panel.reject();
  });
}

TEST_F(PictureDialogsTest, AppendsTheExtensionAndAsksAboutTheNameThatResults) {
  initialise();
  savePicture(path("run.1"));
  EXPECT_FALSE(QFile::exists(path("run.1")));
  const QByteArray first = contentOf(path("run.1.png"));
  oneSweep();
  bool asked = false;
  withPanel([&](QFileDialog& panel) {
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &poll, [&] {
      auto* question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (!question) return;
      asked = true;
      EXPECT_TRUE(question->text().contains("run.1.png")) << question->text().toStdString();
      gui::click(*question->button(QMessageBox::No), QPoint(8, 8));
    });
    poll.start(20);
    EXPECT_FALSE(gui::acceptFilePanel(panel, path("run.1")));
  });
  EXPECT_TRUE(asked);
  EXPECT_EQ(contentOf(path("run.1.png")), first);
  EXPECT_EQ(QDir(folder_.path()).entryList(QDir::Files), QStringList({"run.1.png"}));
}

TEST_F(PictureDialogsTest, AFailureIsOneLineInTheStatusLine) {
  initialise();
  ASSERT_TRUE(QFile::link(path("missing/picture.png"), path("picture.png")));
  savePicture(path("picture.png"));
  EXPECT_TRUE(text("statusLine").contains("picture.png: was not saved: "))
      << text("statusLine").toStdString();
  EXPECT_FALSE(text("statusLine").contains('\n'));
  EXPECT_FALSE(QFile::exists(path("picture.png")));
}

TEST_F(PictureDialogsTest, ACopyHasTheScaleOfTheLastPictureSaved) {
  initialise();
  press(Qt::Key_C);
  EXPECT_EQ(QApplication::clipboard()->image().size(), QSize(496, 416));
  savePicture(path("picture.png"), 9);
  oneSweep();
  oneSweep();
  savePicture(path("again.png"));
  press(Qt::Key_C);
  const QImage copy = QApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32);
  EXPECT_TRUE(gui::samePixels(copy, QImage(path("again.png")).convertToFormat(QImage::Format_RGB32)));
}

TEST_F(PictureDialogsTest, ControlCStillCopiesText) {
  initialise();
  type("textPixelName", "ice");
  QTest::keyClick(&control("textPixelName"), Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(&control("textPixelName"), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), "ice");
  QTest::keyClick(&control("textPixelName"), Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_FALSE(QApplication::clipboard()->image().isNull());
}

TEST_F(PictureDialogsTest, WithoutAModelThereIsNoPicture) {
  QApplication::clipboard()->setText("kept");
  press(Qt::Key_C);
  EXPECT_EQ(QApplication::clipboard()->text(), "kept");
  press(Qt::Key_P);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(PictureDialogsTest, TheStatusLineSaysWhatWasDone) {
  initialise();
  savePicture(path("lattice.png"));
  EXPECT_TRUE(text("statusLine").endsWith("lattice.png: saved")) << text("statusLine").toStdString();
  press(Qt::Key_C);
  EXPECT_TRUE(text("statusLine").endsWith("The picture is on the clipboard, 496 × 416 pixels"))
      << text("statusLine").toStdString();
}

TEST_F(PictureDialogsTest, PipesAndFoldersAreRefusedInOneLineAndNeverWrittenTo) {
  initialise();
  ASSERT_EQ(mkfifo(path("pipe.png").toLocal8Bit().constData(), 0600), 0);
  ASSERT_TRUE(QDir(folder_.path()).mkdir("folder.png"));
  const auto refuse = [this](const QString& name) {
    const gui::MessageAnswer answer(QMessageBox::Ok);
    withPanel([&](QFileDialog& panel) { EXPECT_FALSE(gui::acceptFilePanel(panel, path(name))); });
    return answer.text();
  };
  EXPECT_EQ(refuse("pipe"), "pipe.png is a device or a pipe, not a file.");
  EXPECT_EQ(refuse("folder"), "folder.png is a folder, not a file.");
}

TEST_F(PictureDialogsTest, AFailureInFullScreenIsShownThere) {
  initialise();
  click("buttonFullScreen");
  ASSERT_TRUE(gui::waitUntil([this] { return model().isWindow() && model().isActiveWindow(); }));
  ASSERT_TRUE(QFile::link(path("missing/picture.png"), path("picture.png")));
  const gui::MessageAnswer answer(QMessageBox::Ok);
  savePicture(path("picture.png"));
  EXPECT_TRUE(answer.text().startsWith("picture.png: was not saved: ")) << answer.text().toStdString();
  EXPECT_TRUE(text("statusLine").endsWith(answer.text())) << text("statusLine").toStdString();
}

TEST_F(PictureDialogsTest, SavesInFullScreenAndDuringARun) {
  initialise();
  click("buttonRunModel");
  click("buttonFullScreen");
  ASSERT_TRUE(gui::waitUntil([this] { return model().isWindow() && model().isActiveWindow(); }));
  savePicture(path("picture"), 2);
  EXPECT_EQ(model().varMyState, kRunning);
  EXPECT_EQ(read(path("picture.png")).width, 2 * 124);
}

}  // namespace
}  // namespace quorvane
