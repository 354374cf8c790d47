#include "app/StatusLine.h"

#include <QLocale>
#include <algorithm>

namespace quorvane {
namespace {

constexpr int kMillisecondsBetweenRefreshes = 250;

QString stateName(int state) {
  switch (state) {
    case kNotInitialised:
      return StatusLine::tr("No model yet");
    case kRunning:
      return StatusLine::tr("Running");
    case kPausedForPainting:
      return StatusLine::tr("Paused for painting");
    default:
      return StatusLine::tr("Stopped");
  }
}

}  // namespace

StatusLine::StatusLine(QWidget* parent) : ElidedLabel(parent) {
  clock_.start();
  timer_.setInterval(kMillisecondsBetweenRefreshes);
  connect(&timer_, &QTimer::timeout, this, [this] {
    measure();
    refresh();
  });
}

void StatusLine::follow(const LatticeModel& model) {
  model_ = &model;
  timer_.start();
  refresh();
}

void StatusLine::refresh() {
  if (!model_) return;
  if (model_->varMyState != kRunning) numSamples_ = 0;
  const QString details = message_.isEmpty() ? figures() : message_;
  const QString state = stateName(model_->varMyState);
  setText(details.isEmpty() ? state : state + tr("  ·  ") + details);
}

void StatusLine::showMessage(const QString& message) {
  message_ = message;
  refresh();
}

void StatusLine::clearMessage() { showMessage({}); }

void StatusLine::measure() {
  if (!model_ || model_->varMyState != kRunning) return;
  if (numSamples_ == samples_.size()) {
    std::rotate(samples_.begin(), samples_.begin() + 1, samples_.end());
    --numSamples_;
  }
  samples_[numSamples_++] = {model_->sweepsDone(), clock_.elapsed()};
}

double StatusLine::sweepsPerSecond() const {
  if (numSamples_ < 2) return 0.0;
  const Sample& first = samples_.front();
  const Sample& last = samples_[numSamples_ - 1];
  const auto milliseconds =
      static_cast<double>(std::max<std::int64_t>(last.milliseconds - first.milliseconds, 1));
  return 1000.0 * static_cast<double>(last.sweeps - first.sweeps) / milliseconds;
}

QString StatusLine::figures() const {
  if (model_->getIMax() == 0) return {};
  const QLocale locale;
  const QString sweeps = tr("%1 sweeps").arg(locale.toString(static_cast<qlonglong>(model_->sweepsDone())));
  const QString size = tr("%1 × %2 sites").arg(model_->getIMax()).arg(model_->getJMax());
  if (model_->varMyState != kRunning) return sweeps + tr("  ·  ") + size;
  return sweeps + tr("  ·  %1 sweeps/s  ·  ").arg(locale.toString(sweepsPerSecond(), 'f', 1)) + size;
}

}  // namespace quorvane
