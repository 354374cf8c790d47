#pragma once

#include <QObject>
#include <QSocketNotifier>

namespace quorvane {

/// Signals the main thread when the program is asked to end: see process/StopSignals.h. Create one and keep
/// it.
///
/// The signal is emitted between events, also while a panel is open, so it never interrupts a save.
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
