#include "app/StatusLine.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLocale>
#include <algorithm>

namespace quorvane {
namespace {

constexpr int kMillisecondsBetweenRefreshes = 250;
constexpr int kMillisecondsOfAMessage = 10'000;

bool isModifier(int key) {
  return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt || key == Qt::Key_AltGr ||
         key == Qt::Key_Meta;
}

/// True for events of user actions. For a shortcut only the ShortcutOverride event is delivered, not the
/// press.
bool isAction(const QEvent& event) {
  switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::TouchBegin:
    case QEvent::TabletPress:
      return true;
    case QEvent::KeyPress:
    case QEvent::ShortcutOverride:
      return !isModifier(static_cast<const QKeyEvent&>(event).key());
    default:
      return false;
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
  messageTimer_.setSingleShot(true);
  messageTimer_.setTimerType(Qt::PreciseTimer);
  messageTimer_.setInterval(kMillisecondsOfAMessage);
  connect(&messageTimer_, &QTimer::timeout, this, &StatusLine::clearMessage);
}

void StatusLine::follow(const LatticeModel& model) {
  model_ = &model;
  timer_.start();
  refresh();
}

void StatusLine::refresh() {
  if (!model_) return;
  if (model_->varMyState != kRunning) numSamples_ = 0;
  QStringList parts{state(), figures(), message_};
  parts.removeAll(QString());
  setText(parts.join(tr("  ·  ")));
}

void StatusLine::showMessage(const QString& message) {
  message_ = message;
  messageTimer_.start();
  qApp->installEventFilter(this);
  refresh();
}

void StatusLine::showNotice(const QString& message) {
  showMessage(message);
  messageTimer_.stop();
}

void StatusLine::clearMessage() {
  message_.clear();
  messageTimer_.stop();
  qApp->removeEventFilter(this);
  refresh();
}

bool StatusLine::eventFilter(QObject* watched, QEvent* event) {
  if (isAction(*event)) clearMessage();
  return ElidedLabel::eventFilter(watched, event);
}

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

QString StatusLine::state() const {
  switch (model_->varMyState) {
    case kNotInitialised:
      if (!message_.isEmpty()) return tr("No model yet");
      return tr("No model yet: Initialise fills a lattice at random, Open... brings an example");
    case kRunning:
      return tr("Running");
    case kPausedForPainting:
      return tr("Paused for painting");
    default:
      return tr("Stopped");
  }
}

QString StatusLine::figures() const {
  if (model_->getIMax() == 0) return {};
  const QLocale locale;
  const QString sweeps = tr("%1 sweeps").arg(locale.toString(static_cast<qlonglong>(model_->sweepsDone())));
  const QString size = tr("%1 × %2 sites").arg(model_->getIMax()).arg(model_->getJMax());
  if (model_->varMyState != kRunning || !message_.isEmpty()) return sweeps + tr("  ·  ") + size;
  return sweeps + tr("  ·  %1 sweeps/s  ·  ").arg(locale.toString(sweepsPerSecond(), 'f', 1)) + size;
}

}  // namespace quorvane
