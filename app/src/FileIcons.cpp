#include "app/FileIcons.h"

#include <QApplication>
#include <QFileInfo>
#include <QStyle>

#include "app/DocumentFile.h"

namespace quorvane {
namespace {

QIcon standard(QStyle::StandardPixmap icon) { return QApplication::style()->standardIcon(icon); }

}  // namespace

FileIcons::FileIcons(QObject* parent)
    : QObject(parent),
      computer_(standard(QStyle::SP_ComputerIcon)),
      drive_(standard(QStyle::SP_DriveHDIcon)),
      folder_(standard(QStyle::SP_DirIcon)),
      file_(standard(QStyle::SP_FileIcon)) {}

QIcon FileIcons::icon(IconType type) const {
  switch (type) {
    case Computer:
    case Desktop:
    case Network:
      return computer_;
    case Drive:
      return drive_;
    case Folder:
    case Trashcan:
      return folder_;
    default:
      return file_;
  }
}

QIcon FileIcons::icon(const QFileInfo& info) const {
  if (info.isRoot()) return drive_;
  return info.isDir() ? folder_ : file_;
}

QString FileIcons::type(const QFileInfo& info) const {
  if (info.isRoot()) return tr("Drive");
  if (info.isDir()) return tr("Folder");
  return isDocumentName(info.filePath()) ? tr("Quorvane document") : tr("File");
}

}  // namespace quorvane
