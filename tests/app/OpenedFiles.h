#pragma once

#include <sys/inotify.h>
#include <unistd.h>

#include <QSet>
#include <QString>
#include <array>
#include <cstring>

namespace quorvane {

/// Records the files of a folder that are opened, by any process, during its lifetime.
class OpenedFiles {
 public:
  explicit OpenedFiles(const QString& folder) : events_(inotify_init1(IN_NONBLOCK)) {
    watching_ = inotify_add_watch(events_, folder.toLocal8Bit().constData(), IN_OPEN) >= 0;
  }
  ~OpenedFiles() { close(events_); }
  OpenedFiles(const OpenedFiles&) = delete;
  OpenedFiles& operator=(const OpenedFiles&) = delete;

  bool watching() const { return watching_; }

  /// The names since the start.
  const QSet<QString>& names() {
    std::array<char, 4096> buffer;
    for (ssize_t size; (size = read(events_, buffer.data(), buffer.size())) > 0;)
      for (ssize_t at = 0; at < size;) {
        inotify_event event;
        std::memcpy(&event, &buffer[static_cast<std::size_t>(at)], sizeof event);
        const char* name = &buffer[static_cast<std::size_t>(at)] + sizeof event;
        if (!(event.mask & IN_ISDIR)) names_ += QString::fromLocal8Bit(name);
        at += static_cast<ssize_t>(sizeof event + event.len);
      }
    return names_;
  }

 private:
  int events_;
  bool watching_;
  QSet<QString> names_;
};

}  // namespace quorvane
