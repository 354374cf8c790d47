#include "app/ExampleFolder.h"

#include <QCoreApplication>
#include <QDir>

#include "app/KeptFolder.h"

namespace quorvane {
namespace {

bool holdsDocuments(const QDir& folder) {
  return folder.exists() && !folder.entryList({"*.quorvane"}, QDir::Files).isEmpty();
}

}  // namespace

QString exampleFolder(const QString& programFolder) {
  const QDir installed(programFolder + "/../share/quorvane/examples");
  if (holdsDocuments(installed)) return QDir::cleanPath(installed.path());

  // A build folder is some levels below the source tree.
  constexpr int deepest = 5;
  QDir parent(programFolder);
  for (int depth = 0; depth < deepest && parent.cdUp(); ++depth) {
    const QDir examples(parent.filePath("examples"));
    if (parent.exists("CMakePresets.json") && holdsDocuments(examples)) return examples.path();
  }
  return {};
}

QString exampleFolder() { return exampleFolder(QCoreApplication::applicationDirPath()); }

QString folderToSaveIn(const QString& folder) {
  const QDir kept(QString::fromStdString(keptFolder().string()));
  const bool notForSaving = folder.isEmpty() || folder == exampleFolder() || QDir(folder) == kept;
  return notForSaving ? QDir::currentPath() : folder;
}

}  // namespace quorvane
