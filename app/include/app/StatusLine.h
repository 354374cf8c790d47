#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <array>
#include <cstdint>

#include "app/ElidedLabel.h"
#include "model/LatticeModel.h"

namespace quorvane {

/// One line about the run: its state, the sweeps done, sweeps a second and the lattice's size, or a message
/// in place of the figures. Follows the model four times a second.
class StatusLine : public ElidedLabel {
  Q_OBJECT

 public:
  explicit StatusLine(QWidget* parent = nullptr);

  /// The model to follow, which outlives the line or its last event.
  void follow(const LatticeModel& model);
  /// Shows the state of the model at once.
  void refresh();
  /// Shows a line beside the state until clearMessage.
  void showMessage(const QString& message);
  void clearMessage();

 private:
  struct Sample {
    std::int64_t sweeps = 0;
    std::int64_t milliseconds = 0;
  };

  void measure();
  double sweepsPerSecond() const;
  QString figures() const;

  const LatticeModel* model_ = nullptr;
  QString message_;
  QTimer timer_;
  QElapsedTimer clock_;
  /// The last second and a quarter of the run, oldest first; the rate is taken over all of them.
  std::array<Sample, 6> samples_{};
  std::size_t numSamples_ = 0;
};

}  // namespace quorvane
