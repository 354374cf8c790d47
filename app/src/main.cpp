#include <QApplication>
#include <QIcon>
#include <QSurfaceFormat>

#ifdef __GLIBC__
#include <malloc.h>
#endif

#include <optional>

#include "app/AppDelegate.h"
#include "app/DisplayCheck.h"
#include "app/KeptFolder.h"
#include "app/MainWindow.h"
#include "app/WorkKeeper.h"
#include "engine/f_ran0.h"

namespace {

/// Returns large buffers to the system as soon as they are freed. Otherwise the C library raises its
/// threshold after the first frame's buffers and retains about ten megabytes.
void returnLargeBuffers() {
#ifdef __GLIBC__
  constexpr int largeBytes = 128 * 1024;
  mallopt(M_MMAP_THRESHOLD, largeBytes);
#endif
}

}  // namespace

int main(int argc, char** argv) {
  using namespace quorvane;
  // First of all, since other threads may use the C library's generator later.
  processRandomSource.lookAtPlatform();
  returnLargeBuffers();
  // The default format must be set before the application object is created.
  QSurfaceFormat::setDefaultFormat(GraphicalLatticeModelGL::surfaceFormat());
  if (const auto why = whyNoWindow()) {
    qCritical("Quorvane needs a display: %s", why->c_str());
    return 1;
  }
  std::optional<QuietStart> quietStart(std::in_place);
  QApplication application(argc, argv);
  quietStart.reset();
  QApplication::setApplicationName("Quorvane");
  QApplication::setDesktopFileName("quorvane");
  QApplication::setWindowIcon(QIcon(":/quorvane-128.png"));
  if (!GraphicalLatticeModelGL::canDraw()) {
    qCritical("Quorvane needs desktop OpenGL 2.1 or later, which this machine does not offer");
    return 1;
  }

  MainWindow window;
  AppDelegate delegate(&window);
  QApplication::setQuitOnLastWindowClosed(delegate.applicationShouldTerminateAfterLastWindowClosed());
  delegate.applicationDidFinishLaunching();
  WorkKeeper keeper(window, keptFolder());
  keeper.tellOfEarlierWork();
  keeper.keepAtSignalsAndExit();
  window.show();
  const int status = QApplication::exec();
  keeper.keepAtEnd();
  delegate.applicationWillTerminate();
  return status;
}
