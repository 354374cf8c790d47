#pragma once

#include <QAbstractFileIconProvider>
#include <QIcon>
#include <QObject>

namespace quorvane {

/// Icons and kinds for lists of files by what the folder says of them. Qt's own provider opens files to find
/// out what they hold, which takes long on a network and for ever on some files of a system.
///
/// Made on the main thread; answers on any.
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
