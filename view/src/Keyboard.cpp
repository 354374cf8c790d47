#include <QKeyEvent>
#include <QtGlobal>
#include <system_error>

#include "view/GraphicalLatticeModelGL.h"

namespace quorvane {
namespace {

enum KeyCode { kNoKey = -1, kSpaceBar = 49, kEscape = 53 };

KeyCode keyCodeOf(const QKeyEvent& event) {
  // HeldSpaceBar filters repeats that are not marked as such.
  if (event.isAutoRepeat()) return kNoKey;
  if (event.key() == Qt::Key_Space) return kSpaceBar;
  return event.key() == Qt::Key_Escape ? kEscape : kNoKey;
}

}  // namespace

void GraphicalLatticeModelGL::keyDown(int keyCode) {
  if (varInFullScreen != 1) return;
  if (keyCode == kEscape) stopAndLeaveFullScreen();
  if (keyCode != kSpaceBar) return;
  if (varMyState == kRunning)
    stopLatticeModel();
  else
    startRun();
}

void GraphicalLatticeModelGL::keyPressEvent(QKeyEvent* event) { keyDown(keyCodeOf(*event)); }

void GraphicalLatticeModelGL::startRun() {
  try {
    runLatticeModelInBackground();
  } catch (const std::system_error& error) {
    // Qt's event handlers must not throw.
    qWarning("the simulation cannot start: %s", error.what());
  }
}

}  // namespace quorvane
