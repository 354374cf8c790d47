#include "view/HeldSpaceBar.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>

namespace quorvane {
namespace {

/// The event of the space bar, null for any other.
const QKeyEvent* spaceBar(const QEvent& event, QEvent::Type type) {
  if (event.type() != type) return nullptr;
  const auto& key = static_cast<const QKeyEvent&>(event);
  return key.key() == Qt::Key_Space ? &key : nullptr;
}

bool takesText(const QObject& widget) {
  return static_cast<const QWidget&>(widget).testAttribute(Qt::WA_InputMethodEnabled);
}

}  // namespace

void HeldSpaceBar::watchApplication() {
  auto* application = QCoreApplication::instance();
  if (!application->findChild<HeldSpaceBar*>({}, Qt::FindDirectChildrenOnly))
    application->installEventFilter(new HeldSpaceBar(application));
}

bool HeldSpaceBar::eventFilter(QObject* watched, QEvent* event) {
  if (!watched->isWidgetType()) return false;
  if (const QKeyEvent* release = spaceBar(*event, QEvent::KeyRelease)) lastRelease_ = release->timestamp();
  if (const QKeyEvent* press = spaceBar(*event, QEvent::KeyPress)) {
    const bool inTheInstantOfARelease = press->timestamp() != 0 && press->timestamp() == lastRelease_;
    if (press->isAutoRepeat() || inTheInstantOfARelease) return !typing_;
    typing_ = takesText(*watched);
  }
  return false;
}

}  // namespace quorvane
