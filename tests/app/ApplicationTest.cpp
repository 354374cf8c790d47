#include <gtest/gtest.h>

#include <QProcess>

#include "PrintText.h"

namespace quorvane {
namespace {

TEST(Application, SaysInOneLineThatItCannotDrawAndFails) {
  QProcess program;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  // A platform without OpenGL.
  environment.insert("QT_QPA_PLATFORM", "offscreen");
  environment.insert("XDG_RUNTIME_DIR", ".");
  program.setProcessEnvironment(environment);
  program.start(APPLICATION, {});
  ASSERT_TRUE(program.waitForFinished());
  EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(program.exitCode(), 1);
  EXPECT_TRUE(
      QString(program.readAllStandardError())
          .endsWith("Quorvane needs desktop OpenGL 2.1 or later, which this machine does not offer\n"));
}

}  // namespace
}  // namespace quorvane
