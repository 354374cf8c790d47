#include "app/DocumentFile.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace quorvane {
namespace {

QString tr(const char* text) { return QCoreApplication::translate("quorvane::DocumentFile", text); }

}  // namespace

bool isDocumentName(const QString& path) {
  return QFileInfo(path).suffix().compare(QLatin1String(kDocumentSuffix), Qt::CaseInsensitive) == 0;
}

QString whyNoDocument(const QString& path) {
  const QFileInfo file(path);
  if (file.isDir()) return tr("is a folder, not a document");
  if (!file.exists()) return {};
  if (!isDocumentName(path)) return tr("is not a Quorvane document: its name does not end in .quorvane");
  return file.isFile() ? QString() : tr("is a device or a pipe, not a document");
}

QString openingMessage(const QString& path, const OpenResult& result) {
  QString reason = QString::fromStdString(result.reason);
  if (result.status == OpenStatus::kUnreadable) reason = tr("cannot be read as a document: %1").arg(reason);
  return QFileInfo(path).fileName() + ": " + reason;
}

}  // namespace quorvane
