#include <QApplication>
#include <QCheckBox>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QProcess>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <vector>

#include "app/MainWindow.h"

// Prints the response time of real clicks on the window while the largest lattice runs at full speed. Needs a
// display and xdotool, which makes the clicks.

namespace quorvane {
namespace {

constexpr int kSites = 254;
constexpr int kTypes = 10;
constexpr int kClicks = 300;
constexpr int kFastest = 1'000'000'000;
constexpr int kMostMilliseconds = 10'000;

void runLargestLattice(LatticeModel& model) {
  model.initializeLatticeModel(kTypes, kSites, kSites);
  model.makeNewRule("mix", kSwap, kAnyPixelType, kAnyPixelType);
  model.setRuleParam(0, 1.0);
  model.setSimulationSpeed(kFastest);
  model.runLatticeModelInBackground();
}

/// Milliseconds from the call of xdotool, whose start is included, to the handler of the click.
double answerTime(QCheckBox& box) {
  const QPoint middle = box.mapToGlobal(QPoint(8, box.height() / 2));
  QEventLoop answered;
  QElapsedTimer timer;
  double milliseconds = kMostMilliseconds;
  QObject::connect(&box, &QCheckBox::clicked, &answered, [&] {
    milliseconds = static_cast<double>(timer.nsecsElapsed()) / 1e6;
    answered.quit();
  });
  QTimer::singleShot(kMostMilliseconds, &answered, &QEventLoop::quit);
  timer.start();
  QProcess::startDetached(
      "xdotool", {"mousemove", QString::number(middle.x()), QString::number(middle.y()), "click", "1"});
  answered.exec();
  return milliseconds;
}

void printAnswerTimes(const char* what, QCheckBox& box) {
  std::vector<double> times;
  for (int click = 0; click < kClicks; ++click) times.push_back(answerTime(box));
  std::ranges::sort(times);
  const auto quantile = [&](double share) {
    return times[std::min(times.size() - 1, static_cast<std::size_t>(share * kClicks))];
  };
  std::printf("%-42s median %6.1f ms   99 %% %6.1f ms   longest %6.1f ms\n", what, quantile(0.5),
              quantile(0.99), times.back());
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
  printAnswerTimes("a click on the window at rest", *box);
  runLargestLattice(model);
  printAnswerTimes("a click during a run of 254 x 254, 10 types", *box);
  std::printf("sweeps made meanwhile: %lld\n", static_cast<long long>(model.sweepsDone()));
  model.endRunLoops();
}
