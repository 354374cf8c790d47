#include <sys/stat.h>

#include <QDialogButtonBox>
#include <QDir>
#include <QFileSystemModel>
#include <QListView>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <QTreeView>

#include "FilePanel.h"
#include "Log.h"
#include "OpenedFiles.h"
#include "WindowTest.h"
#include "app/DocumentPanel.h"
#include "app/DocumentPreview.h"
#include "app/FileIcons.h"

namespace quorvane {
namespace {

const char* const kOpen = "buttonOpenSystem";
const char* const kSave = "buttonSaveSystem";

class DocumentPanels : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    ASSERT_TRUE(folder_.isValid());
  }
  void TearDown() override { QDir::setCurrent(formerFolder_); }

  QString path(const QString& name) const { return folder_.filePath(name); }
  void write(const QString& name, const QByteArray& content) const {
    QFile file(path(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
  }
  void copyExample(const QString& example, const QString& name) const {
    ASSERT_TRUE(QFile::copy(QString(EXAMPLES) + "/" + example + ".quorvane", path(name)));
  }
  void makePipe(const QString& name) const {
    ASSERT_EQ(mkfifo(path(name).toLocal8Bit().constData(), 0600), 0);
  }
  void withPanel(const char* button, const std::function<void(QFileDialog&)>& deal) {
    EXPECT_TRUE(gui::withFilePanel(get<QPushButton>(button), deal));
  }
  bool choose(const char* button, const QString& name) {
    return gui::choosePath(get<QPushButton>(button), path(name));
  }
  /// Makes the panels start in the temporary folder, without a model.
  void useFolder() {
    write("broken.quorvane", "300\n");
    EXPECT_TRUE(choose(kOpen, "broken.quorvane"));
  }
  static QString shownBy(QFileDialog& panel) { return panel.findChild<DocumentPreview*>("preview")->shown(); }
  static QModelIndex row(QFileDialog& panel, const QString& name) {
    auto* list = panel.findChild<QListView*>("listView");
    for (int r = 0; r < list->model()->rowCount(list->rootIndex()); ++r)
      if (const QModelIndex index = list->model()->index(r, 0, list->rootIndex());
          index.data().toString() == name)
        return index;
    return {};
  }
  static bool waitForRow(QFileDialog& panel, const QString& name) {
    return gui::waitUntil([&] { return row(panel, name).isValid(); });
  }

  QTemporaryDir folder_;
  const QString formerFolder_ = QDir::currentPath();
};

TEST_F(DocumentPanels, OpenStartsAtTheExamplesAndListsThemInTheSideBarWithHome) {
  withPanel(kOpen, [](QFileDialog& panel) {
    EXPECT_EQ(panel.directory().path(), EXAMPLES);
    const QList<QUrl> places = panel.sidebarUrls();
    EXPECT_EQ(places.value(0), QUrl::fromLocalFile(EXAMPLES));
    EXPECT_TRUE(places.contains(QUrl::fromLocalFile(QDir::homePath())));
    EXPECT_FALSE(panel.findChild<QToolButton*>("backButton")->isEnabled());
    EXPECT_TRUE(waitForRow(panel, "voters.quorvane"));
    panel.reject();
  });
  const QSettings shared(QSettings::UserScope, "QtProject");
  const QStringList places = shared.value("FileDialog/shortcuts").toStringList();
  EXPECT_FALSE(places.contains(QUrl::fromLocalFile(EXAMPLES).toString()))
      << "the places of other programs' panels";
}

TEST_F(DocumentPanels, OpenStartsWhereADocumentWasUsedLast) {
  useFolder();
  withPanel(kOpen, [this](QFileDialog& panel) {
    EXPECT_EQ(panel.directory().path(), folder_.path());
    panel.reject();
  });
}

TEST_F(DocumentPanels, StartAtHomeIfTheLastFolderIsGone) {
  const QString gone = path("gone");
  ASSERT_TRUE(QDir().mkdir(gone));
  write("gone/broken.quorvane", "300\n");
  EXPECT_TRUE(choose(kOpen, "gone/broken.quorvane"));
  ASSERT_TRUE(QDir(gone).removeRecursively());
  withPanel(kOpen, [](QFileDialog& panel) {
    EXPECT_EQ(panel.directory().path(), QDir::homePath());
    panel.reject();
  });
}

TEST_F(DocumentPanels, SaveDoesNotStartAtTheExamples) {
  ASSERT_TRUE(QDir::setCurrent(folder_.path()));
  EXPECT_TRUE(gui::choosePath(get<QPushButton>(kOpen), QString(EXAMPLES) + "/voters.quorvane"));
  withPanel(kSave, [this](QFileDialog& panel) {
    EXPECT_EQ(panel.directory().path(), folder_.path());
    EXPECT_TRUE(panel.sidebarUrls().contains(QUrl::fromLocalFile(EXAMPLES)));
    panel.reject();
  });
}

TEST_F(DocumentPanels, AreQtsOwn) {
  for (const char* button : {kOpen, kSave}) {
    withPanel(button, [](QFileDialog& panel) {
      EXPECT_TRUE(panel.testOption(QFileDialog::DontUseNativeDialog));
      panel.reject();
    });
    if (button == kOpen) initialise();
  }
}

TEST_F(DocumentPanels, OpenNoFileButTheChosenDocument) {
  copyExample("voters", "chosen.quorvane");
  copyExample("voters", "other.quorvane");
  write("picture.png", "no picture");
  write("plain", "#!/bin/sh\n");
  makePipe("pipe.quorvane");
  makePipe("pipe");
  useFolder();
  // What a panel would list first by default.
  ASSERT_TRUE(QDir::setCurrent(folder_.path()));
  OpenedFiles opened(folder_.path());
  ASSERT_TRUE(opened.watching());
  withPanel(kOpen, [&](QFileDialog& panel) {
    for (const QFileDialog::ViewMode mode : {QFileDialog::Detail, QFileDialog::List}) {
      panel.setViewMode(mode);
      EXPECT_TRUE(waitForRow(panel, "other.quorvane"));
      const QModelIndex other = row(panel, "other.quorvane");
      // Filled in by the thread that reads each file's information.
      EXPECT_TRUE(gui::waitUntil([&] { return !other.siblingAtColumn(2).data().toString().isEmpty(); }));
      EXPECT_EQ(other.siblingAtColumn(2).data().toString(), "Quorvane document");
      QTest::qWait(200);
    }
    EXPECT_EQ(opened.names(), QSet<QString>());
    gui::enterPath(panel, "chosen.quorvane");
    EXPECT_TRUE(gui::waitUntil([&] { return shownBy(panel) == path("chosen.quorvane"); }));
    EXPECT_TRUE(gui::acceptFilePanel(panel, path("chosen.quorvane")));
  });
  EXPECT_EQ(model().varMyState, kStopped);
  EXPECT_EQ(opened.names(), QSet<QString>({"chosen.quorvane"}));
}

TEST_F(DocumentPanels, ATypedFileOfAnotherKindIsRefusedInOneLineAndThePanelStaysOpen) {
  write("notes.txt", "2\n2\n1\n");
  OpenedFiles opened(folder_.path());
  Log log;
  const gui::MessageAnswer answer(QMessageBox::Ok);
  EXPECT_FALSE(choose(kOpen, "notes.txt"));
  EXPECT_EQ(answer.text(), "notes.txt is not a Quorvane document: its name does not end in .quorvane.");
  EXPECT_EQ(log.lines(), QStringList({"readUsingOpenPanel cancelled"}));
  EXPECT_EQ(opened.names(), QSet<QString>());
  EXPECT_EQ(model().varMyState, kNotInitialised);
}

TEST_F(DocumentPanels, PipesAndDevicesAreRefusedInOneLineAndNeverOpened) {
  makePipe("pipe.quorvane");
  ASSERT_TRUE(QFile::link("/dev/zero", path("zero.quorvane")));
  for (const QString name : {"pipe.quorvane", "zero.quorvane"}) {
    OpenedFiles opened(folder_.path());
    const gui::MessageAnswer answer(QMessageBox::Ok);
    EXPECT_FALSE(choose(kOpen, name));
    EXPECT_EQ(answer.text(), name + " is a device or a pipe, not a document.");
    EXPECT_EQ(opened.names(), QSet<QString>());
  }
  initialise();
  const gui::MessageAnswer answer(QMessageBox::Ok);
  EXPECT_FALSE(choose(kSave, "pipe"));
  EXPECT_EQ(answer.text(), "pipe.quorvane is a device or a pipe, not a file.");
}

TEST_F(DocumentPanels, AFolderNamedAsADocumentIsRefusedInOneLine) {
  ASSERT_TRUE(QDir(folder_.path()).mkdir("folder.quorvane"));
  const gui::MessageAnswer answer(QMessageBox::Ok);
  EXPECT_FALSE(choose(kOpen, "folder.quorvane"));
  EXPECT_EQ(answer.text(), "folder.quorvane is a folder, not a document.");
  initialise();
  EXPECT_FALSE(choose(kSave, "folder"));
  EXPECT_EQ(answer.text(), "folder.quorvane is a folder, not a file.");
}

TEST_F(DocumentPanels, OpenAcceptsOnlyTheNameOfAnExistingFile) {
  withPanel(kOpen, [this](QFileDialog& panel) {
    const QPushButton* open = panel.findChild<QDialogButtonBox*>("buttonBox")->button(QDialogButtonBox::Open);
    gui::enterPath(panel, path("missing.quorvane"));
    QTest::qWait(300);
    EXPECT_FALSE(open->isEnabled());
    EXPECT_EQ(shownBy(panel), "");
    QTest::keyClick(&panel, Qt::Key_Return);
    EXPECT_TRUE(panel.isVisible());
    if (panel.isVisible()) panel.reject();
  });
}

TEST_F(DocumentPanels, SaveAddsTheExtensionIfItIsMissing) {
  initialise();
  for (const QString name : {"plain", "a.b", "notes.txt", "loud.QUORVANE"}) EXPECT_TRUE(choose(kSave, name));
  EXPECT_EQ(QDir(folder_.path()).entryList(QDir::Files, QDir::Name),
            QStringList({"a.b.quorvane", "loud.QUORVANE", "notes.txt.quorvane", "plain.quorvane"}));
}

TEST_F(DocumentPanels, ADocumentWithACapitalExtensionIsListedAndOpened) {
  copyExample("voters", "LOUD.QUORVANE");
  useFolder();
  withPanel(kOpen, [this](QFileDialog& panel) {
    EXPECT_TRUE(waitForRow(panel, "LOUD.QUORVANE"));
    EXPECT_TRUE(gui::acceptFilePanel(panel, path("LOUD.QUORVANE")));
  });
  EXPECT_EQ(model().varMyState, kStopped);
}

TEST_F(DocumentPanels, TheListIsWalkedAndOpenedByKeys) {
  copyExample("voters", "a.quorvane");
  copyExample("epidemic", "b.quorvane");
  ASSERT_TRUE(QDir(folder_.path()).mkdir("0"));
  useFolder();
  withPanel(kOpen, [this](QFileDialog& panel) {
    panel.setViewMode(QFileDialog::List);
    for (const char* name : {"0", "a.quorvane", "b.quorvane", "broken.quorvane"})
      EXPECT_TRUE(waitForRow(panel, name));
    auto* list = panel.findChild<QListView*>("listView");
    list->setFocus(Qt::TabFocusReason);
    list->setCurrentIndex(row(panel, "a.quorvane"));
    EXPECT_TRUE(gui::waitUntil([&] { return shownBy(panel) == path("a.quorvane"); }));
    QTest::keyClick(list, Qt::Key_Up);
    EXPECT_EQ(list->currentIndex().data().toString(), "0");
    gui::processEvents();
    EXPECT_EQ(shownBy(panel), "") << "a folder";
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(list->currentIndex().data().toString(), "b.quorvane");
    EXPECT_TRUE(gui::waitUntil([&] { return shownBy(panel) == path("b.quorvane"); }));
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_FALSE(panel.isVisible());
    if (panel.isVisible()) panel.reject();
  });
  EXPECT_EQ(window_->windowTitle(), "b.quorvane - Quorvane");
}

TEST_F(DocumentPanels, AnotherFolderShowsNothingOfTheFormerOne) {
  copyExample("voters", "a.quorvane");
  useFolder();
  withPanel(kOpen, [this](QFileDialog& panel) {
    gui::enterPath(panel, "a.quorvane");
    EXPECT_TRUE(gui::waitUntil([&] { return shownBy(panel) == path("a.quorvane"); }));
    panel.setDirectory(EXAMPLES);
    EXPECT_EQ(shownBy(panel), "");
    QTest::mouseClick(panel.findChild<QToolButton*>("backButton"), Qt::LeftButton);
    EXPECT_EQ(panel.directory().path(), folder_.path());
    QTest::mouseClick(panel.findChild<QToolButton*>("backButton"), Qt::LeftButton);
    EXPECT_EQ(panel.directory().path(), folder_.path()) << "where the user began";
    panel.reject();
  });
}

TEST(FileIcons, DifferForAFolderAndADocument) {
  const FileIcons icons;
  EXPECT_EQ(icons.type(QFileInfo("/")), "Drive");
  EXPECT_EQ(icons.type(QFileInfo(EXAMPLES)), "Folder");
  EXPECT_EQ(icons.type(QFileInfo("/nowhere/x.QUORVANE")), "Quorvane document");
  EXPECT_EQ(icons.type(QFileInfo("/nowhere/x.png")), "File");
  for (const auto type : {QAbstractFileIconProvider::Computer, QAbstractFileIconProvider::Drive,
                          QAbstractFileIconProvider::Folder, QAbstractFileIconProvider::File})
    EXPECT_FALSE(icons.icon(type).isNull());
}

}  // namespace
}  // namespace quorvane
