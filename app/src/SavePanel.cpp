#include "app/SavePanel.h"

#include <QGridLayout>
#include <QLineEdit>
#include <filesystem>

#include "app/ExampleFolder.h"
#include "document/AtomicFile.h"

namespace quorvane {

SavePanel::SavePanel(QWidget* parent, const QString& title, const SuggestedFile& suggested,
                     const QString& kind, const QString& suffix)
    : NamedFilesPanel(parent, title, suggested.folder), suffix_(suffix) {
  setAcceptMode(AcceptSave);
  setNameFilter(QString("%1 (*.%2)").arg(kind, suffix));
  setDefaultSuffix(suffix);
  selectFile(suggested.baseName + "." + suffix);
}

void SavePanel::addRow(QWidget* label, QWidget* field) {
  auto* grid = qobject_cast<QGridLayout*>(layout());
  const int row = grid->rowCount();
  grid->addWidget(label, row, 0);
  grid->addWidget(field, row, 1);
}

QString SavePanel::run() {
  if (exec() != Accepted || selectedFiles().isEmpty()) return {};
  return selectedFiles().constFirst();
}

void SavePanel::accept() {
  // A name with a dot seems to have an extension, so the panel would leave "run.1" as it is.
  auto* field = findChild<QLineEdit*>("fileNameEdit");
  const QString name = field ? field->text() : QString();
  const bool namesFile = !name.isEmpty() && !name.endsWith('/') && !QFileInfo(directory(), name).isDir();
  if (namesFile && QFileInfo(name).suffix().compare(suffix_, Qt::CaseInsensitive) != 0)
    field->setText(name + "." + suffix_);
  QFileDialog::accept();
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

QString writeResult(const QString& path, std::string_view content) {
  const std::error_code error = writeFileAtomically(std::filesystem::path(path.toStdU16String()), content);
  return error ? notSaved(path, QString::fromLocal8Bit(error.message())) : QString();
}

}  // namespace quorvane
