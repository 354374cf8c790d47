#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <array>
#include <cstdint>

#include "app/ElidedLabel.h"
#include "model/LatticeModel.h"

namespace quorvane {

/// One line about the run: its state, sweeps done, sweeps per second and the lattice's size, or what to do if
/// there is no model yet. Updated four times a second. A message follows them, in place of the rate, until
/// the user's next action in any window of the application, or for ten seconds.
class StatusLine : public ElidedLabel {
  Q_OBJECT

 public:
  explicit StatusLine(QWidget* parent = nullptr);

  /// model: outlives the line or its last event.
  void follow(const LatticeModel& model);
  /// Shows the state of the model at once.
  void refresh();
  /// Shows a message after the state.
  void showMessage(const QString& message);
  /// The same without the time limit.
  void showNotice(const QString& message);
  void clearMessage();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Sample {
    std::int64_t sweeps = 0;
    std::int64_t milliseconds = 0;
  };

  void measure();
  double sweepsPerSecond() const;
  QString state() const;
  QString figures() const;

  const LatticeModel* model_ = nullptr;
  QString message_;
  QTimer timer_;
  QTimer messageTimer_;
  QElapsedTimer clock_;
  /// Samples of the last 1.25 seconds of the run, oldest first, for the rate.
  std::array<Sample, 6> samples_{};
  std::size_t numSamples_ = 0;
};

}  // namespace quorvane
