#include <gmock/gmock.h>

#include <QProcess>
#include <QRegularExpression>
#include <QTest>
#include <csignal>

#include "GuiSupport.h"
#include "KeptFolderSupport.h"
#include "PrintText.h"
#include "app/KeptFolder.h"
#include "document/ModelDocument.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;

/// The application itself, on a screen, with unsaved work.
class Application {
 public:
  explicit Application(const fs::path& stateHome, const QString& display = qEnvironmentVariable("DISPLAY"))
      : environment_(QProcessEnvironment::systemEnvironment()) {
    environment_.insert("XDG_STATE_HOME", QString::fromStdString(stateHome.string()));
    environment_.insert("DISPLAY", display);
    process_.setProcessEnvironment(environment_);
  }
  ~Application() {
    process_.kill();
    process_.waitForFinished();
  }
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;

  /// ignored: a signal that is ignored when the process starts.
  void start(int ignored = 0) {
    process_.setChildProcessModifier([ignored] {
      for (const int each : {SIGINT, SIGTERM, SIGHUP}) ::signal(each, each == ignored ? SIG_IGN : SIG_DFL);
    });
    process_.start(APPLICATION, {});
    ASSERT_TRUE(process_.waitForStarted());
    ASSERT_TRUE(waitForWindow("Quorvane")) << "no window";
    // Also without a window manager.
    tool({"windowfocus", window_});
  }
  /// Initialises and remakes the lattice, and leaves the Save panel open. Keys are handled in order.
  void makeWork() {
    openSavePanel("alt+i");
    closePanel();
    openSavePanel("alt+m");
  }
  void closePanel() {
    tool({"key", "Escape"});
    ASSERT_TRUE(gui::waitUntil([this] { return find("Save the model").isEmpty(); }));
    tool({"windowfocus", window_});
  }
  void save(const fs::path& path) {
    tool({"type", "--delay", "1", QString::fromStdString(path.string())});
    tool({"key", "Return"});
  }
  void press(const QString& key) { tool({"key", key}); }
  void signal(int number) { ::kill(static_cast<pid_t>(process_.processId()), number); }

  /// The exit status, or minus the signal that ended it.
  int wait() {
    if (!gui::waitUntil([this] { return process_.state() == QProcess::NotRunning; })) return -999;
    return process_.exitStatus() == QProcess::NormalExit ? process_.exitCode() : -process_.exitCode();
  }
  /// Its own messages on standard error.
  QStringList lines() {
    return QString::fromLocal8Bit(process_.readAllStandardError())
        .split('\n')
        .filter(QRegularExpression("^Quorvane"));
  }

 private:
  QString tool(const QStringList& arguments) const {
    QProcess xdotool;
    xdotool.setProcessEnvironment(environment_);
    xdotool.start("xdotool", arguments);
    return xdotool.waitForFinished(5000) ? QString(xdotool.readAllStandardOutput()).trimmed() : QString();
  }
  QString find(const QString& name) const {
    return tool({"search", "--onlyvisible", "--all", "--pid", QString::number(process_.processId()), "--name",
                 "^" + name});
  }
  bool waitForWindow(const QString& name) {
    return gui::waitUntil([&] {
      window_ = find(name);
      return !window_.isEmpty();
    });
  }
  /// Save is refused before Initialise, whose mnemonic acts a tenth of a second late.
  void openSavePanel(const QString& keyBefore) {
    press(keyBefore);
    QString panel;
    ASSERT_TRUE(gui::waitUntil([&] {
      press("alt+v");
      return gui::waitUntil(
          [&] {
            panel = find("Save the model");
            return !panel.isEmpty();
          },
          std::chrono::milliseconds(500));
    })) << "no panel";
    tool({"windowfocus", panel});
  }

  QProcessEnvironment environment_;
  QProcess process_;
  QString window_;
};

class KeptAtEnd : public ::testing::Test {
 protected:
  std::vector<fs::path> copies() const { return keptCopies(kept_.path()); }
  static OpenStatus statusOf(const fs::path& document) {
    const auto model = std::make_unique<LatticeModel>();
    model->awakeFromNib();
    return openDocument(*model, document).status;
  }
  void expectOneCopyAndOneLineThatNamesIt(Application& application) const {
    ASSERT_EQ(copies().size(), 1u);
    EXPECT_EQ(statusOf(copies()[0]), OpenStatus::kOpened);
    EXPECT_EQ(application.lines(), QStringList("Quorvane has kept the unsaved work in " +
                                               QString::fromStdString(copies()[0].string())));
  }

  const TemporaryKeptFolder kept_{};
};

TEST_F(KeptAtEnd, WhenASignalEndsTheProgram) {
  Application application(kept_.state());
  application.start();
  application.makeWork();
  application.closePanel();
  application.signal(SIGINT);
  EXPECT_EQ(application.wait(), -SIGINT);
  expectOneCopyAndOneLineThatNamesIt(application);
}

TEST_F(KeptAtEnd, WhenASignalComesWhileAPanelIsOpenAndAnotherIsIgnored) {
  Application application(kept_.state());
  application.start(SIGHUP);
  application.makeWork();
  application.signal(SIGHUP);
  application.signal(SIGTERM);
  EXPECT_EQ(application.wait(), -SIGTERM);
  expectOneCopyAndOneLineThatNamesIt(application);
}

TEST_F(KeptAtEnd, NothingIfThereIsNoWork) {
  Application application(kept_.state());
  application.start();
  application.signal(SIGHUP);
  EXPECT_EQ(application.wait(), -SIGHUP);
  EXPECT_EQ(application.lines(), QStringList());
  EXPECT_FALSE(fs::exists(kept_.path()));
}

TEST_F(KeptAtEnd, WhenTheWindowIsClosedWithoutAQuestion) {
  Application application(kept_.state());
  application.start();
  application.makeWork();
  application.closePanel();
  application.press("alt+F4");
  EXPECT_EQ(application.wait(), 0);
  EXPECT_EQ(application.lines(), QStringList());
  ASSERT_EQ(copies().size(), 1u);
  EXPECT_EQ(statusOf(copies()[0]), OpenStatus::kOpened);
}

TEST_F(KeptAtEnd, ClosesWithAMessageIfNothingCanBeKept) {
  Application application("/dev/null");
  application.start();
  application.makeWork();
  application.closePanel();
  application.press("alt+F4");
  EXPECT_EQ(application.wait(), 0);
  EXPECT_EQ(application.lines(),
            QStringList("Quorvane cannot keep unsaved work in /dev/null/quorvane: Not a directory"));
}

TEST_F(KeptAtEnd, WhenTheDisplayIsLost) {
  QProcess server;
  server.start("Xvfb", {"-displayfd", "1", "-screen", "0", "1400x1000x24", "-noreset"});
  ASSERT_TRUE(server.waitForReadyRead(10'000));
  Application application(kept_.state(), ":" + QString(server.readLine()).trimmed());
  application.start();
  application.makeWork();
  server.kill();
  ASSERT_TRUE(server.waitForFinished());
  EXPECT_EQ(application.wait(), 1);
  expectOneCopyAndOneLineThatNamesIt(application);
}

TEST_F(KeptAtEnd, ASaveIsCompletedOrNotBegun) {
  const QTemporaryDir folder;
  const fs::path target = fs::path(folder.path().toStdString()) / "saved.quorvane";
  for (const int milliseconds : {0, 10}) {
    fs::remove(target);
    fs::remove_all(kept_.path());
    Application application(kept_.state());
    application.start();
    application.makeWork();
    application.save(target);
    QTest::qSleep(milliseconds);
    application.signal(SIGTERM);
    EXPECT_EQ(application.wait(), -SIGTERM);
    const bool saved = fs::exists(target);
    EXPECT_EQ(copies().size(), saved ? 0u : 1u);
    EXPECT_EQ(statusOf(saved ? target : copies().at(0)), OpenStatus::kOpened);
    EXPECT_EQ(std::distance(fs::directory_iterator(target.parent_path()), {}), saved ? 1 : 0);
  }
}

}  // namespace
}  // namespace quorvane
