#pragma once

#include <QObject>
#include <QSocketNotifier>

namespace quorvane {

/// Tells the main thread of a signal that asks the program to end: see process/StopSignals.h. Make one and
/// keep it.
///
/// It tells between two events, also while a panel is open, so a save is never cut short.
class EndSignals : public QObject {
  Q_OBJECT

 public:
  explicit EndSignals(QObject* parent = nullptr);

 signals:
  void received(int signal);

 private:
  QSocketNotifier notifier_;
};

}  // namespace quorvane
