#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <array>
#include <cstdint>

#include "app/ElidedLabel.h"
#include "model/LatticeModel.h"

namespace quorvane {

/// One line about the run: its state, the sweeps done, sweeps a second and the lattice's size, or what to do
/// where there is no model yet. Follows the model four times a second. A message stands behind them, in place
/// of the rate, until the user does the next thing in any window of the application, or for ten seconds.
class StatusLine : public ElidedLabel {
  Q_OBJECT

 public:
  explicit StatusLine(QWidget* parent = nullptr);

  /// The model to follow, which outlives the line or its last event.
  void follow(const LatticeModel& model);
  /// Shows the state of the model at once.
  void refresh();
  /// Shows a line behind the figures.
  void showMessage(const QString& message);
  /// The same, however long it takes until the user does the next thing.
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
  /// The last second and a quarter of the run, oldest first; the rate is taken over all of them.
  std::array<Sample, 6> samples_{};
  std::size_t numSamples_ = 0;
};

}  // namespace quorvane
