#pragma once

#include <QAbstractFileIconProvider>
#include <QIcon>
#include <QObject>

namespace quorvane {

/// Icons and kinds for lists of files, from directory entries only. Qt's own provider opens files to find
/// their types, which is slow on a network and can block on special files.
///
/// Create it on the main thread; it may be used on any.
class FileIcons : public QObject, public QAbstractFileIconProvider {
  Q_OBJECT

 public:
  explicit FileIcons(QObject* parent = nullptr);

  QIcon icon(IconType type) const override;
  QIcon icon(const QFileInfo& info) const override;
  QString type(const QFileInfo& info) const override;

 private:
  const QIcon computer_, drive_, folder_, file_;
};

}  // namespace quorvane
