#include "app/SavePanel.h"

#include <QFileIconProvider>
#include <QGridLayout>
#include <QLineEdit>
#include <filesystem>

#include "document/AtomicFile.h"

namespace quorvane {
namespace {

/// Knows files by what they are called. The toolkit's own provider reads them, which may never end in folders
/// of the system and is slow on a network.
class NamesAlone : public QFileIconProvider {
 public:
  QIcon icon(const QFileInfo& file) const override {
    return QFileIconProvider::icon(file.isDir() ? Folder : File);
  }
  QString type(const QFileInfo& file) const override {
    return file.isDir() ? SavePanel::tr("Folder") : file.suffix();
  }
};

QFileIconProvider* namesAlone() {
  static NamesAlone provider;
  return &provider;
}

}  // namespace

SavePanel::SavePanel(QWidget* parent, const QString& title, const QString& kind, const QString& suffix)
    : QFileDialog(parent, title), suffix_(suffix) {
  // The platform's own panel takes no further rows and no provider of icons.
  setOption(DontUseNativeDialog);
  setIconProvider(namesAlone());
  setAcceptMode(AcceptSave);
  setNameFilter(QString("%1 (*.%2)").arg(kind, suffix));
  setDefaultSuffix(suffix);
}

void SavePanel::suggest(const QString& folder, const QString& baseName) {
  if (!folder.isEmpty()) setDirectory(folder);
  selectFile(baseName + "." + suffix_);
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

SuggestedFile suggestedFile(const QString& document, const QString& otherwise) {
  if (document.isEmpty()) return {{}, otherwise};
  const QFileInfo file(document);
  return {file.absolutePath(), file.completeBaseName()};
}

QString notSaved(const QString& path, const QString& reason) {
  return SavePanel::tr("%1: was not saved: %2").arg(QFileInfo(path).fileName(), reason);
}

QString writeResult(const QString& path, std::string_view content) {
  const std::error_code error = writeFileAtomically(std::filesystem::path(path.toStdU16String()), content);
  return error ? notSaved(path, QString::fromLocal8Bit(error.message())) : QString();
}

}  // namespace quorvane
