#pragma once

#include <QObject>
#include <QSocketNotifier>

namespace quorvane {

/// Lets the main thread end the program where SIGTERM, SIGINT or SIGHUP would end it at once. State of the
/// whole process, so make one and keep it.
///
/// Between two events, also while a panel is open, so that a save is never cut short. Another one of these
/// signals a second later or more ends the process at once; earlier ones are the same wish. A signal that was
/// ignored stays so. From then on a reader of the log who goes away (SIGPIPE) and a file that may grow no
/// larger (SIGXFSZ) end the process no more: the write fails instead.
class EndSignals : public QObject {
  Q_OBJECT

 public:
  explicit EndSignals(QObject* parent = nullptr);

 signals:
  void received(int signal);

 private:
  void receive();

  QSocketNotifier notifier_;
};

/// Ends the process by the signal as if it had not been caught, so that whoever sent it sees that it has
/// worked.
void endBySignal(int signal);

}  // namespace quorvane
