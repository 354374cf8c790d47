#include "view/HeldSpaceBar.h"

#include <QKeyEvent>

namespace quorvane {
namespace {

/// The event of the space bar, null for any other.
const QKeyEvent* spaceBar(const QEvent& event, QEvent::Type type) {
  if (event.type() != type) return nullptr;
  const auto& key = static_cast<const QKeyEvent&>(event);
  return key.key() == Qt::Key_Space ? &key : nullptr;
}

}  // namespace

bool HeldSpaceBar::eventFilter(QObject* watched, QEvent* event) {
  if (const QKeyEvent* release = spaceBar(*event, QEvent::KeyRelease)) lastRelease_ = release->timestamp();
  if (const QKeyEvent* press = spaceBar(*event, QEvent::KeyPress)) {
    const bool inTheInstantOfARelease = press->timestamp() != 0 && press->timestamp() == lastRelease_;
    if (press->isAutoRepeat() || inTheInstantOfARelease) return true;
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace quorvane
