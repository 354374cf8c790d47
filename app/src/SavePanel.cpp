#include "app/SavePanel.h"

#include <QGridLayout>
#include <QLineEdit>
#include <filesystem>

#include "app/ExampleFolder.h"
#include "app/PlainMessage.h"
#include "document/AtomicFile.h"

namespace quorvane {
namespace {

/// Empty if the file does not exist or is of a kind that can be replaced.
QString whyNoFile(const QString& path) {
  const QFileInfo file(path);
  if (file.isDir()) return SavePanel::tr("is a folder, not a file");
  return file.exists() && !file.isFile() ? SavePanel::tr("is a device or a pipe, not a file") : QString();
}

}  // namespace

SavePanel::SavePanel(QWidget* parent, const QString& title, const SuggestedFile& suggested,
                     const QString& kind, const QString& suffix)
    : NamedFilesPanel(parent, title, suggested.folder), suffix_(suffix) {
  setAcceptMode(AcceptSave);
  setNameFilter(QString("%1 (*.%2)").arg(kind, suffix));
  setDefaultSuffix(suffix);
  if (!suggested.baseName.isEmpty()) selectFile(suggested.baseName + "." + suffix);
}

void SavePanel::addRow(QWidget* label, QWidget* field) {
  auto* grid = qobject_cast<QGridLayout*>(layout());
  const int row = grid->rowCount();
  grid->addWidget(label, row, 0);
  grid->addWidget(field, row, 1);
}

void SavePanel::accept() {
  const QString chosen = pathMeant();
  // Qt itself enters a folder.
  const bool entersFolder = QFileInfo(chosen).isDir() && !hasSuffix(chosen);
  if (chosen.isEmpty() || entersFolder) return QFileDialog::accept();
  const QString path = hasSuffix(chosen) ? chosen : chosen + "." + suffix_;
  const QString file = QFileInfo(path).fileName();
  if (const QString reason = whyNoFile(path); !reason.isEmpty())
    return warn(this, windowTitle(), file + " " + reason + ".");
  const QString question = tr("%1 already exists. Do you want to replace it?").arg(file);
  if (QFileInfo::exists(path) && !confirm(this, windowTitle(), question)) return;
  acceptPath(path);
}

bool SavePanel::hasSuffix(const QString& path) const {
  return QFileInfo(path).suffix().compare(suffix_, Qt::CaseInsensitive) == 0;
}

SuggestedFile suggestedFile(const QString& lastFolder, const QString& document, const QString& otherwise) {
  const QFileInfo file(document);
  const QString folder = document.isEmpty() ? QString() : file.absolutePath();
  return {lastFolder.isEmpty() ? folderToSaveIn(folder) : lastFolder,
          document.isEmpty() ? otherwise : file.completeBaseName()};
}

QString notSaved(const QString& path, const QString& reason) {
  return SavePanel::tr("%1: was not saved: %2").arg(QFileInfo(path).fileName(), reason);
}

WriteResult writeResult(const QString& path, std::string_view content) {
  const Written written = writeFileAtomically(std::filesystem::path(path.toStdU16String()), content);
  if (written.error)
    return {false, notSaved(path, QString::fromStdString(written.error.message() + whereLeft(written)))};
  return {true, SavePanel::tr("%1: saved").arg(QFileInfo(path).fileName())};
}

}  // namespace quorvane
