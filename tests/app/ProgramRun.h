#pragma once

#include <gtest/gtest.h>

#include <QByteArray>
#include <QFile>
#include <QProcess>
#include <QStringList>

#include "GuiSupport.h"

namespace quorvane {

struct ProgramResult {
  int status = -1;  ///< exit status, or -1 if the program did not end by itself in time
  QByteArray out;
};

/// Runs a program while this process handles its own events. Passes on its standard error.
inline ProgramResult runProgram(const QString& program, const QStringList& arguments) {
  constexpr std::chrono::seconds deadline{120};
  QProcess process;
  process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  process.start(program, arguments);
  if (!process.waitForStarted() ||
      !gui::waitUntil([&] { return process.state() == QProcess::NotRunning; }, deadline) ||
      process.exitStatus() != QProcess::NormalExit) {
    process.kill();
    process.waitForFinished();
    return {};
  }
  return {process.exitCode(), process.readAllStandardOutput()};
}

inline QByteArray contentOf(const QString& path) {
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
  return file.readAll();
}

}  // namespace quorvane
