#include <gtest/gtest.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTcpServer>
#include <algorithm>

#include "GuiSupport.h"
#include "PrintText.h"

namespace quorvane {
namespace {

/// The output of a desktop tool, or an empty string if it fails.
QString output(const QString& tool, const QStringList& arguments) {
  QProcess process;
  process.start(tool, arguments);
  if (!process.waitForFinished(5000) || process.exitCode() != 0) return {};
  return QString(process.readAllStandardOutput()).trimmed();
}

/// The application itself, on the screen and driven through the window system.
class ApplicationProcess : public ::testing::Test {
 protected:
  void SetUp() override {
    clock_.start();
    process_.setProcessChannelMode(QProcess::ForwardedChannels);
    process_.start(APPLICATION, {});
    ASSERT_TRUE(process_.waitForStarted());
    ASSERT_TRUE(gui::waitUntil([this] {
      window_ = output("xdotool", {"search", "--onlyvisible", "--pid", QString::number(process_.processId()),
                                   "--name", "Quorvane"});
      return !window_.isEmpty();
    })) << "no window";
    millisecondsToWindow_ = clock_.elapsed();
  }
  void TearDown() override {
    if (process_.state() == QProcess::NotRunning) return;
    process_.kill();
    process_.waitForFinished();
  }

  bool activate() {
    output("xdotool", {"windowactivate", window_});
    return gui::waitUntil([this] { return output("xdotool", {"getactivewindow"}) == window_; });
  }
  void press(const QString& key) { output("xdotool", {"key", key}); }

  /// Seconds of CPU time that the process has used.
  double processorTime() const {
    QFile file(QString("/proc/%1/stat").arg(process_.processId()));
    if (!file.open(QIODevice::ReadOnly)) return 0.0;
    // The name in parentheses may contain anything; the times are the 12th and 13th fields after it.
    const QByteArray line = file.readAll();
    const QList<QByteArray> fields = line.mid(line.lastIndexOf(')') + 2).split(' ');
    return (fields.value(11).toDouble() + fields.value(12).toDouble()) /
           static_cast<double>(sysconf(_SC_CLK_TCK));
  }

  /// Closes the window like the window manager's close button, and waits for the process to end.
  void closeAndExpectASuccessfulEnd() {
    press("alt+F4");
    clock_.restart();
    // A run that waits keeps a processor busy, so its time shows if the end of the wait was waited for.
    // Unlike the clock it does not grow while others have the processors.
    const double before = processorTime();
    double used = 0.0;
    EXPECT_TRUE(gui::waitUntil([&] {
      used = std::max(used, processorTime() - before);
      return process_.state() == QProcess::NotRunning;
    }));
    EXPECT_LT(used, 5.0);
    RecordProperty("milliseconds_to_exit", static_cast<int>(clock_.elapsed()));
    EXPECT_EQ(process_.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process_.exitCode(), 0);
  }

  QProcess process_;
  QElapsedTimer clock_;
  QString window_;
  qint64 millisecondsToWindow_ = 0;
};

/// The messages of the application on standard error in an environment in which it cannot open its window. It
/// must end by itself within ten seconds with status 1.
QStringList linesOfAFailedStart(const QProcessEnvironment& environment) {
  QProcess process;
  process.setProcessEnvironment(environment);
  QElapsedTimer clock;
  clock.start();
  process.start(APPLICATION, {});
  EXPECT_TRUE(process.waitForFinished(30'000));
  EXPECT_LT(clock.elapsed(), 10'000) << "a server that does not answer is given four seconds";
  EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(process.exitCode(), 1);
  EXPECT_EQ(process.readAllStandardOutput(), QByteArray());
  return QString::fromLocal8Bit(process.readAllStandardError()).split('\n', Qt::SkipEmptyParts);
}

QProcessEnvironment withoutDisplay() {
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  for (const char* name :
       {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "QT_XCB_GL_INTEGRATION", "XDG_SESSION_TYPE"})
    environment.remove(name);
  return environment;
}

QProcessEnvironment withDisplay(const QString& display) {
  QProcessEnvironment environment = withoutDisplay();
  environment.insert("DISPLAY", display);
  return environment;
}

TEST(ApplicationStart, SaysInOneLineThatThereIsNoDisplay) {
  const QStringList expected{"Quorvane needs a display: neither DISPLAY nor WAYLAND_DISPLAY is set"};
  EXPECT_EQ(linesOfAFailedStart(withoutDisplay()), expected);
  for (const char* platform : {"xcb", "wayland"}) {
    QProcessEnvironment environment = withoutDisplay();
    environment.insert("QT_QPA_PLATFORM", platform);
    EXPECT_EQ(linesOfAFailedStart(environment), expected) << platform;
  }
}

TEST(ApplicationStart, SaysInOneLineThatTheDisplayCannotBeReached) {
  EXPECT_EQ(linesOfAFailedStart(withDisplay("no-display")),
            QStringList("Quorvane needs a display: the X server of DISPLAY=no-display cannot be reached"));
}

TEST(ApplicationStart, SaysInOneLineThatTheCompositorCannotBeReached) {
  QProcessEnvironment environment = withoutDisplay();
  environment.insert("WAYLAND_DISPLAY", "no-display");
  const QStringList lines = linesOfAFailedStart(environment);
  ASSERT_EQ(lines.size(), 1) << lines.join('\n').toStdString();
  EXPECT_TRUE(lines[0].startsWith("Quorvane needs a display: ")) << lines[0].toStdString();
}

TEST(ApplicationStart, SaysInOneLineThatTheServerOffersNoOpenGl) {
  QProcess server;
  server.setProcessChannelMode(QProcess::SeparateChannels);
  server.start("Xvfb", {"-displayfd", "1", "-screen", "0", "640x480x24", "-extension", "GLX"});
  ASSERT_TRUE(server.waitForReadyRead(10'000));
  const QString display = ":" + QString(server.readLine()).trimmed();
  const QStringList expected{"Quorvane needs a display: the X server of DISPLAY=" + display +
                             " offers no OpenGL (no GLX; QT_XCB_GL_INTEGRATION=xcb_egl tries to do without)"};
  EXPECT_EQ(linesOfAFailedStart(withDisplay(display)), expected);
  QProcessEnvironment withCompositor = withDisplay(display);
  withCompositor.insert("WAYLAND_DISPLAY", "left-over");
  EXPECT_EQ(linesOfAFailedStart(withCompositor), expected);
  server.terminate();
  EXPECT_TRUE(server.waitForFinished());
}

TEST(ApplicationStart, SaysInOneLineThatTheServerDoesNotAnswer) {
  // A display with a new number that accepts connections and never answers.
  QTcpServer silent;
  int number = 200;
  constexpr int firstPort = 6000, last = 260;
  while (!silent.listen(QHostAddress::LocalHost, static_cast<quint16>(firstPort + number)) && number < last)
    ++number;
  ASSERT_TRUE(silent.isListening());
  EXPECT_EQ(linesOfAFailedStart(withDisplay("127.0.0.1:" + QString::number(number))),
            QStringList("Quorvane needs a display: the X server of DISPLAY does not answer"));
}

TEST_F(ApplicationProcess, ShowsItsWindowSoonAfterItsStart) {
  std::printf("from the start of the process to its window: %lld ms\n",
              static_cast<long long>(millisecondsToWindow_));
  RecordProperty("milliseconds_to_window", static_cast<int>(millisecondsToWindow_));
  EXPECT_LT(millisecondsToWindow_, 10'000);
}

TEST_F(ApplicationProcess, EndsWithSuccessWhenItsWindowIsClosed) {
  ASSERT_TRUE(activate());
  closeAndExpectASuccessfulEnd();
}

TEST_F(ApplicationProcess, EndsWithSuccessWhenItsWindowIsClosedInTheWaitOfTheSlowestRun) {
  ASSERT_TRUE(activate());
  // The knob of the speed, moved to its lower end, then Initialise, which takes the focus elsewhere.
  for (const char* key : {"alt+e", "Home", "alt+i"}) press(key);
  // The wait is a counting loop, so the process is busy from now on; without a run it uses next to nothing.
  const double before = processorTime();
  ASSERT_TRUE(gui::waitUntil(
      [&] {
        // Run has no effect until Initialise is done, and none during a run.
        press("alt+r");
        return processorTime() - before > 2.0;
      },
      std::chrono::seconds(30)));
  ASSERT_EQ(process_.state(), QProcess::Running);
  closeAndExpectASuccessfulEnd();
}

}  // namespace
}  // namespace quorvane
