#pragma once

#include <QStringList>
#include <QtGlobal>

namespace quorvane {

/// Collects messages of the log during its lifetime, without Qt's own. One at a time.
class Log {
 public:
  Log() {
    collecting = this;
    former_ = qInstallMessageHandler([](QtMsgType, const QMessageLogContext& context, const QString& line) {
      if (qstrncmp(context.category, "qt.", 3) != 0) collecting->lines_ += line;
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
