#include <QApplication>
#include <QCheckBox>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QProcess>
#include <QTimer>
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <random>
#include <vector>

#include "app/MainWindow.h"

// Prints the response time of real clicks on the window at rest, and while the largest lattice runs at full
// speed with traces of all types. Needs a display and xdotool, which makes the clicks.

namespace quorvane {
namespace {

constexpr int kSites = 254;
constexpr double kPersistence = 0.9;
constexpr int kClicks = 200;
constexpr int kFastest = 1'000'000'000;
constexpr int kDefaultSpeed = 1000;
constexpr int kRateMilliseconds = 5'000;
constexpr int kLeastPause = 10, kMostPause = 80;
constexpr int kMostMilliseconds = 10'000;

void runLargestLattice(LatticeModel& model, int types) {
  model.initializeLatticeModel(types, kSites, kSites);
  for (int type = 0; type < types; ++type) model.setPixelPersistence(type, kPersistence);
  model.makeNewRule("mix", kSwap, kAnyPixelType, kAnyPixelType);
  model.setRuleParam(0, 1.0);
  model.setSimulationSpeed(kFastest);
  model.runLatticeModelInBackground();
}

void letPass(int milliseconds) {
  QEventLoop loop;
  QTimer::singleShot(milliseconds, Qt::PreciseTimer, &loop, &QEventLoop::quit);
  loop.exec();
}

/// Makes clicks on a check box like a user's. One xdotool, which is told each click, makes them all: a start
/// of its own for each would take longer than the answer.
class Clicks {
 public:
  explicit Clicks(QCheckBox& box) : box_(box) { xdotool_.start("xdotool", {"-"}); }
  ~Clicks() {
    xdotool_.closeWriteChannel();
    xdotool_.waitForFinished();
  }

  /// Milliseconds from the request to the handler of the click.
  double answerTime() {
    const QPoint middle = box_.mapToGlobal(QPoint(8, box_.height() / 2));
    QEventLoop answered;
    QElapsedTimer timer;
    double milliseconds = kMostMilliseconds;
    QObject::connect(&box_, &QCheckBox::clicked, &answered, [&] {
      milliseconds = static_cast<double>(timer.nsecsElapsed()) / 1e6;
      answered.quit();
    });
    QTimer::singleShot(kMostMilliseconds, &answered, &QEventLoop::quit);
    timer.start();
    xdotool_.write(QStringLiteral("mousemove %1 %2 click 1\n").arg(middle.x()).arg(middle.y()).toLatin1());
    xdotool_.waitForBytesWritten();
    answered.exec();
    return milliseconds;
  }

 private:
  QCheckBox& box_;
  QProcess xdotool_;
};

struct AnswerTimes {
  double median, almostAll, longest;
};

AnswerTimes answerTimes(QCheckBox& box) {
  Clicks clicks(box);
  std::mt19937 random;
  std::uniform_int_distribution<int> pause(kLeastPause, kMostPause);
  std::vector<double> times;
  for (int click = 0; click < kClicks; ++click) {
    // Not in step with the frames.
    letPass(pause(random));
    times.push_back(clicks.answerTime());
  }
  std::ranges::sort(times);
  const auto quantile = [&](double share) {
    return times[std::min(times.size() - 1, static_cast<std::size_t>(share * kClicks))];
  };
  return {quantile(0.5), quantile(0.99), times.back()};
}

void print(const char* what, const AnswerTimes& times) {
  std::printf("%-56s median %6.1f ms   99 %% %6.1f ms   longest %6.1f ms", what, times.median,
              times.almostAll, times.longest);
}

void measureRun(GraphicalLatticeModelGL& model, QCheckBox& box, int types, const AnswerTimes& atRest) {
  int frames = 0;
  const auto counting =
      QObject::connect(&model, &GraphicalLatticeModelGL::frameDrawn, &box, [&] { ++frames; });
  const std::int64_t sweepsBefore = model.sweepsDone();
  QElapsedTimer timer;
  timer.start();
  runLargestLattice(model, types);
  const AnswerTimes times = answerTimes(box);
  const double seconds = static_cast<double>(timer.elapsed()) / 1e3;
  const auto sweeps = static_cast<double>(model.sweepsDone() - sweepsBefore);
  model.endRunLoops();
  QObject::disconnect(counting);
  const QByteArray what = "during a run of 254 x 254, " + QByteArray::number(types) + " types";
  print(what.constData(), times);
  std::printf("   more than at rest: %.1f and %.1f ms   a second: %.1f frames, %.0f sweeps\n",
              times.median - atRest.median, times.almostAll - atRest.almostAll, frames / seconds,
              sweeps / seconds);
}

/// A process that keeps a processor busy, like a compiler.
class BusyProcess {
 public:
  BusyProcess() { process_.start("sh", {"-c", "while :; do :; done"}); }
  ~BusyProcess() {
    process_.kill();
    process_.waitForFinished();
  }

 private:
  QProcess process_;
};

double sweepsPerSecond(const LatticeModel& model) {
  const std::int64_t before = model.sweepsDone();
  QElapsedTimer timer;
  timer.start();
  letPass(kRateMilliseconds);
  return static_cast<double>(model.sweepsDone() - before) / (static_cast<double>(timer.elapsed()) / 1e3);
}

void measureBesideBusyProcesses(LatticeModel& model, QCheckBox& box, int types) {
  runLargestLattice(model, types);
  model.setSimulationSpeed(kDefaultSpeed);
  const double alone = sweepsPerSecond(model);
  const std::array<BusyProcess, 2> busy;
  const double beside = sweepsPerSecond(model);
  print("the same at the default speed beside two busy processes", answerTimes(box));
  std::printf("   sweeps a second: %.1f, alone %.1f\n", beside, alone);
  model.endRunLoops();
}

}  // namespace
}  // namespace quorvane

int main(int argc, char** argv) {
  using namespace quorvane;
  QSurfaceFormat::setDefaultFormat(GraphicalLatticeModelGL::surfaceFormat());
  const QApplication application(argc, argv);
  MainWindow window;
  window.show();
  QElapsedTimer sinceShown;
  for (sinceShown.start(); sinceShown.elapsed() < 1000;) QApplication::processEvents();
  GraphicalLatticeModelGL& model = window.model();
  auto* box = window.findChild<QCheckBox*>("checkPauseWhilePaint");
  box->setEnabled(true);
  const AnswerTimes atRest = answerTimes(*box);
  print("a click on the window at rest", atRest);
  std::printf("\n");
  for (const int types : {2, 10}) {
    measureRun(model, *box, types, atRest);
    measureBesideBusyProcesses(model, *box, types);
  }
}
