#include <gmock/gmock.h>

#include <QApplication>
#include <QSurfaceFormat>
#include <QTemporaryDir>

#include "view/GraphicalLatticeModelGL.h"

int main(int argc, char** argv) {
  ::testing::InitGoogleMock(&argc, argv);
  // Listing the test cases needs no display.
  if (GTEST_FLAG_GET(list_tests)) return RUN_ALL_TESTS();

  // What tests do not save is no work that their user wants to keep, and what a panel remembers for the next
  // time is not for tests that run beside this one.
  const QTemporaryDir home;
  for (const char* variable : {"XDG_STATE_HOME", "XDG_CONFIG_HOME"})
    qputenv(variable, home.path().toLocal8Bit());
  // Frames are compared pixel by pixel, so all machines use software rendering.
  qputenv("LIBGL_ALWAYS_SOFTWARE", "1");
  QSurfaceFormat::setDefaultFormat(quorvane::GraphicalLatticeModelGL::surfaceFormat());
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  return RUN_ALL_TESTS();
}
