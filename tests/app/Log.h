#pragma once

#include <QStringList>
#include <QtGlobal>

namespace quorvane {

/// Collects messages of the log during its lifetime, without Qt's own. One at a time.
class Log {
 public:
  Log() {
    collecting = this;
    former_ = qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& line) {
      if (!line.startsWith("qt.")) collecting->lines_ += line;
    });
  }
  ~Log() { qInstallMessageHandler(former_); }
  Log(const Log&) = delete;
  Log& operator=(const Log&) = delete;

  const QStringList& lines() const { return lines_; }

 private:
  static inline Log* collecting = nullptr;

  QStringList lines_;
  QtMessageHandler former_;
};

}  // namespace quorvane
