#include <gmock/gmock.h>

#include <QApplication>
#include <QSurfaceFormat>
#include <QTemporaryDir>

#include "view/GraphicalLatticeModelGL.h"

int main(int argc, char** argv) {
  ::testing::InitGoogleMock(&argc, argv);
  // The cases can be listed on a machine without a display.
  if (GTEST_FLAG_GET(list_tests)) return RUN_ALL_TESTS();

  // What tests do not save is no work that their user wants to keep.
  const QTemporaryDir state;
  qputenv("XDG_STATE_HOME", state.path().toLocal8Bit());
  // Frames are compared pixel by pixel, so every machine draws them in software.
  qputenv("LIBGL_ALWAYS_SOFTWARE", "1");
  QSurfaceFormat::setDefaultFormat(quorvane::GraphicalLatticeModelGL::surfaceFormat());
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  return RUN_ALL_TESTS();
}
