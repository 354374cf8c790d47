#include <QApplication>
#include <QSurfaceFormat>

#include "app/AppDelegate.h"
#include "app/MainWindow.h"

int main(int argc, char** argv) {
  using namespace quorvane;
  // The format of every context, so it has to be known before the application object.
  QSurfaceFormat::setDefaultFormat(GraphicalLatticeModelGL::surfaceFormat());
  QApplication application(argc, argv);
  QApplication::setApplicationName("Quorvane");
  QApplication::setDesktopFileName("quorvane");
  if (!GraphicalLatticeModelGL::canDraw()) {
    qCritical("Quorvane needs desktop OpenGL 2.1 or later, which this machine does not offer");
    return 1;
  }

  MainWindow window;
  AppDelegate delegate(&window);
  QApplication::setQuitOnLastWindowClosed(delegate.applicationShouldTerminateAfterLastWindowClosed());
  delegate.applicationDidFinishLaunching();
  window.show();
  const int status = QApplication::exec();
  delegate.applicationWillTerminate();
  return status;
}
