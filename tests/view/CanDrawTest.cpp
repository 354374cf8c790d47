#include <gtest/gtest.h>

#include <QProcess>

namespace quorvane {
namespace {

/// The output of can_draw in a process with one more variable in its environment.
QByteArray answerWith(const char* variable, const char* value) {
  QProcess process;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QString::fromLatin1(variable), QString::fromLatin1(value));
  process.setProcessEnvironment(environment);
  process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  process.start(QStringLiteral(CAN_DRAW_PROGRAM), {});
  EXPECT_TRUE(process.waitForFinished(30'000));
  EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
  return process.readAllStandardOutput().trimmed();
}

TEST(CanDraw, SaysYesOnADisplayWithDesktopOpenGL) { EXPECT_EQ(answerWith("QT_QPA_PLATFORM", "xcb"), "yes"); }

TEST(CanDraw, SaysNoOnAPlatformWithoutOpenGL) { EXPECT_EQ(answerWith("QT_QPA_PLATFORM", "minimal"), "no"); }

TEST(CanDraw, SaysNoOnAPlatformThatCannotShowTheView) {
  EXPECT_EQ(answerWith("QT_QPA_PLATFORM", "offscreen"), "no");
}

TEST(CanDraw, SaysNoOnADisplayWithoutOpenGL) { EXPECT_EQ(answerWith("QT_XCB_GL_INTEGRATION", "none"), "no"); }

}  // namespace
}  // namespace quorvane
