// A second application for tests: a process with the main window, driven like a user does.
//
//   window_session OPENED SAVED [loop N | calls N | keys N | kept-loop N | kept-keys N [CHOSEN...]]
//
// Previews other documents in the panel, opens one, makes N sweeps by the run loop, by calls of the model or
// by the keys of One Sweep, saves through the panel and writes the report of the state before the first sweep
// to its standard output. With "kept-" it also keeps unsaved work every millisecond.

#include <QApplication>
#include <QSurfaceFormat>
#include <QTest>
#include <algorithm>
#include <cstdio>

#include "FilePanel.h"
#include "RunLoopThreads.h"
#include "SystemReport.h"
#include "app/DocumentPreview.h"
#include "app/DoubleSlider.h"
#include "app/KeptFolder.h"
#include "app/WorkKeeper.h"
#include "document/DocumentFile.h"
#include "engine/f_ran0.h"

namespace quorvane {
namespace {

/// A driven window. Each operation returns whether it succeeded.
class Session {
 public:
  bool show() {
    return static_cast<bool>(gui::showAndActivate(window_)) &&
           gui::waitUntil([this] { return model().getWidth() > 0.0; });
  }
  bool open(const QString& path, const QStringList& chosenBefore) {
    bool opened = false;
    return gui::withFilePanel(button("buttonOpenSystem"),
                              [&](QFileDialog& panel) {
                                opened = preview(panel, chosenBefore) && gui::acceptFilePanel(panel, path);
                              }) &&
           opened && model().varMyState == kStopped;
  }
  bool save(const QString& path) { return gui::choosePath(button("buttonSaveSystem"), path); }
  QStringList report() { return reportSystem(window_); }

  /// At speed 0 the wait after a sweep has no end but the stop, so that each run makes one sweep.
  bool sweepByRunLoop(int count) {
    for (int sweeps = 1; sweeps <= count; ++sweeps) {
      RunLoopThreads loop;
      setSpeed(Qt::Key_Home);
      loop.during([this] { click("buttonRunModel"); });
      model().setSimulationSpeed(0);
      if (loop.numStarted() != 1 || !gui::waitUntil([&] { return model().sweepsDone() == sweeps; }))
        return false;
      click("buttonStopModel");
      setSpeed(Qt::Key_End);
      if (!loop.waitForEnd() || model().sweepsDone() != sweeps || !keptIfWanted()) return false;
    }
    return true;
  }
  bool sweepByCalls(int count) {
    model().runSweeps(count);
    return model().sweepsDone() == count;
  }
  bool sweepByKeys(int count) {
    for (int sweeps = 0; sweeps < count; ++sweeps) {
      QTest::keyClick(&window_, Qt::Key_Right, Qt::ControlModifier);
      if (!keptIfWanted()) return false;
    }
    return model().sweepsDone() == count;
  }
  bool sweep(const QString& way, int count) {
    if (way.startsWith("kept-")) {
      keeper_ = std::make_unique<WorkKeeper>(window_, keptFolder(), std::chrono::milliseconds(1));
      return sweep(way.mid(5), count) && keeper_->copy().isThere();
    }
    if (way == "loop") return sweepByRunLoop(count);
    return way == "keys" ? sweepByKeys(count) : sweepByCalls(count);
  }

 private:
  LatticeModel& model() { return window_.model(); }
  QAbstractButton& button(const char* name) {
    return *window_.findChild<QAbstractButton*>(QString::fromLatin1(name));
  }
  static bool preview(QFileDialog& panel, const QStringList& paths) {
    const auto* preview = panel.findChild<DocumentPreview*>("preview");
    return std::all_of(paths.begin(), paths.end(), [&](const QString& path) {
      gui::enterPath(panel, path);
      return gui::waitUntil([&] { return preview->shown() == path; });
    });
  }
  bool keptIfWanted() {
    return !keeper_ || gui::waitUntil([this] {
      std::string kept;
      return !readDocumentFile(keeper_->copy().path(), DocumentSource::kFile, kept) &&
             kept == writeDocument(model());
    });
  }
  void click(const char* name) { gui::click(button(name), button(name).rect().center()); }
  void setSpeed(Qt::Key end) { QTest::keyClick(window_.findChild<QWidget*>("sliderSimulationSpeed"), end); }

  MainWindow window_;
  std::unique_ptr<WorkKeeper> keeper_;
};

int fail(const char* step) {
  std::fprintf(stderr, "window_session: %s failed\n", step);
  return 1;
}

int run(const QStringList& arguments) {
  Session session;
  if (!session.show()) return fail("showing the window");
  if (!session.open(arguments.at(1), arguments.mid(5))) return fail("opening");
  std::puts(qPrintable(session.report().join('\n')));
  if (arguments.size() >= 5 && !session.sweep(arguments.at(3), arguments.at(4).toInt()))
    return fail("sweeping");
  return session.save(arguments.at(2)) ? 0 : fail("saving");
}

}  // namespace
}  // namespace quorvane

int main(int argc, char** argv) {
  quorvane::processRandomSource.lookAtPlatform();
  QSurfaceFormat::setDefaultFormat(quorvane::GraphicalLatticeModelGL::surfaceFormat());
  const QApplication application(argc, argv);
  if (argc != 3 && argc < 5) return 2;
  return quorvane::run(QApplication::arguments());
}
