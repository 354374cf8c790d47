#pragma once

#include <QDir>
#include <QSet>
#include <QString>

#include "GuiSupport.h"

namespace quorvane {

/// The run loops started by certain actions of the user, distinguished from other threads by when they
/// started. A loop outlives the stop by a wait, and the model does not report its end.
class RunLoopThreads {
 public:
  /// Performs an action that starts a run loop and, as no other event is handled meanwhile, no other thread.
  template <class Act>
  void during(Act act) {
    const QSet<QString> before = threads();
    act();
    started_ += threads() - before;
  }

  int numStarted() const { return static_cast<int>(started_.size()); }

  /// Waits until every loop has ended.
  bool waitForEnd() const {
    return gui::waitUntil([this] { return !threads().intersects(started_); });
  }

 private:
  static QSet<QString> threads() {
    const QStringList ids = QDir("/proc/self/task").entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    return {ids.begin(), ids.end()};
  }

  QSet<QString> started_;
};

}  // namespace quorvane
