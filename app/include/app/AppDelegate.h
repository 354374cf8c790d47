#pragma once

#include <QMainWindow>
#include <QPointer>

namespace quorvane {

/// Handles application-wide events of the platform.
class AppDelegate {
 public:
  explicit AppDelegate(QMainWindow* mainWindow) : window(mainWindow) {}

  void applicationDidFinishLaunching() {}
  void applicationWillTerminate() {}
  /// True: closing the main window quits the application.
  bool applicationShouldTerminateAfterLastWindowClosed() const { return true; }

  QPointer<QMainWindow> window;
};

}  // namespace quorvane
