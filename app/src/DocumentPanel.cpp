#include "app/DocumentPanel.h"

#include <QFileSystemModel>
#include <QGridLayout>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QListView>
#include <QScreen>

#include "app/DocumentFile.h"
#include "app/DocumentPreview.h"
#include "app/KeptFolder.h"
#include "app/PlainMessage.h"

namespace quorvane {

DocumentPanel::DocumentPanel(QWidget* parent, const QString& folder, const LatticeModel& model)
    : NamedFilesPanel(parent, tr("Open a document"), folder), files_(findChild<QFileSystemModel*>()) {
  setNameFilter(tr("Quorvane documents (*.quorvane)"));
  setDefaultSuffix(kDocumentSuffix);
  setFileMode(ExistingFile);
  if (const std::filesystem::path kept = keptFolder(); !keptCopies(kept).empty())
    addPlace(QString::fromStdString(kept.string()), PlaceAt::kBottom);
  addPreview(model);
}

void DocumentPanel::accept() {
  const QString path = pathMeant();
  // Qt itself enters a folder and reports a missing file.
  const bool entersFolder = QFileInfo(path).isDir() && !isDocumentName(path);
  if (path.isEmpty() || entersFolder) return QFileDialog::accept();
  if (const QString reason = whyNoDocument(path); !reason.isEmpty())
    return warn(this, windowTitle(), QFileInfo(path).fileName() + " " + reason + ".");
  if (!QFileInfo::exists(path)) return QFileDialog::accept();
  acceptPath(path);
}

void DocumentPanel::addPreview(const LatticeModel& model) {
  preview_ = new DocumentPreview(model, this);
  preview_->setObjectName("preview");
  auto* grid = qobject_cast<QGridLayout*>(layout());
  grid->addWidget(preview_, 0, grid->columnCount(), grid->rowCount(), 1);
  const QSize room = screen()->availableGeometry().size() * 9 / 10;
  resize(QSize(920, 560).boundedTo(room));

  const auto* list = findChild<QListView*>("listView");
  connect(list->selectionModel(), &QItemSelectionModel::selectionChanged, this, &DocumentPanel::followChoice);
  connect(&name(), &QLineEdit::textChanged, this, &DocumentPanel::followChoice);
  connect(files_, &QFileSystemModel::rootPathChanged, this, &DocumentPanel::followChoice);
}

void DocumentPanel::followChoice() {
  const auto* list = findChild<QListView*>("listView");
  // The name field keeps the document's name when a folder is selected after it.
  const QModelIndexList rows = list->selectionModel()->selectedRows();
  const bool onFolder =
      !rows.isEmpty() && QFileInfo(rows.constFirst().data(QFileSystemModel::FilePathRole).toString()).isDir();
  const QString path = onFolder ? QString() : pathMeant();
  preview_->show(QFileInfo::exists(path) ? path : QString());
}

}  // namespace quorvane
