#include "app/DocumentPanel.h"

#include <QFileSystemModel>
#include <QGridLayout>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QListView>
#include <QScreen>
#include <QUrl>

#include "app/DocumentFile.h"
#include "app/DocumentPreview.h"
#include "app/ExampleFolder.h"
#include "app/PlainMessage.h"

namespace quorvane {

std::unique_ptr<DocumentPanel> DocumentPanel::toOpen(QWidget* parent, const QString& folder,
                                                     const LatticeModel& model) {
  std::unique_ptr<DocumentPanel> panel(new DocumentPanel(parent, tr("Open a document"), folder));
  panel->setFileMode(ExistingFile);
  panel->addPreview(model);
  return panel;
}

std::unique_ptr<DocumentPanel> DocumentPanel::toSave(QWidget* parent, const QString& folder) {
  std::unique_ptr<DocumentPanel> panel(new DocumentPanel(parent, tr("Save the model"), folder));
  panel->setAcceptMode(AcceptSave);
  return panel;
}

DocumentPanel::DocumentPanel(QWidget* parent, const QString& title, const QString& folder)
    : NamedFilesPanel(parent, title, folder) {
  setNameFilter(tr("Quorvane documents (*.quorvane)"));
  setDefaultSuffix(kDocumentSuffix);
  files_ = findChild<QFileSystemModel*>();
  name_ = findChild<QLineEdit*>("fileNameEdit");
  addExamplesToSideBar();
}

DocumentPanel::~DocumentPanel() {
  // Qt keeps the places for the panels of other programs, which have no use for ours.
  const QUrl examples = QUrl::fromLocalFile(exampleFolder());
  QList<QUrl> places = sidebarUrls();
  if (!formerPlaces_.contains(examples)) places.removeAll(examples);
  setSidebarUrls(places);
}

QString DocumentPanel::choose() { return exec() == Accepted ? document_ : QString(); }

void DocumentPanel::accept() {
  const QStringList chosen = selectedFiles();
  const QString path = documentMeant();
  const bool saves = acceptMode() == AcceptSave;
  // Qt enters a folder, and says that a document to open is not there.
  const bool isFolder = !chosen.isEmpty() && QFileInfo(chosen.constFirst()).isDir();
  if (path.isEmpty() || (isFolder && !isDocumentName(chosen.constFirst()))) return QFileDialog::accept();
  if (const QString reason = whyNoDocument(path); !reason.isEmpty())
    return warn(this, windowTitle(), QFileInfo(path).fileName() + " " + reason + ".");
  if (!saves && !QFileInfo::exists(path)) return QFileDialog::accept();
  const QString question =
      tr("%1 already exists. Do you want to replace it?").arg(QFileInfo(path).fileName());
  if (saves && QFileInfo::exists(path) && !confirm(this, windowTitle(), question)) return;
  document_ = path;
  QDialog::accept();
}

void DocumentPanel::addExamplesToSideBar() {
  formerPlaces_ = sidebarUrls();
  QList<QUrl> places = formerPlaces_;
  const QUrl home = QUrl::fromLocalFile(QDir::homePath());
  if (!places.contains(home)) places.prepend(home);
  if (const QString examples = exampleFolder(); !examples.isEmpty()) {
    const QUrl place = QUrl::fromLocalFile(examples);
    places.removeAll(place);
    places.prepend(place);
  }
  setSidebarUrls(places);
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
  connect(name_, &QLineEdit::textChanged, this, &DocumentPanel::followChoice);
  connect(files_, &QFileSystemModel::rootPathChanged, this, &DocumentPanel::followChoice);
}

void DocumentPanel::followChoice() {
  const auto* list = findChild<QListView*>("listView");
  // The name of a document stays in the field when a folder is chosen after it.
  const QModelIndexList rows = list->selectionModel()->selectedRows();
  const bool onFolder =
      !rows.isEmpty() && QFileInfo(rows.constFirst().data(QFileSystemModel::FilePathRole).toString()).isDir();
  const QString path = onFolder ? QString() : documentMeant();
  preview_->show(QFileInfo::exists(path) ? path : QString());
}

QString DocumentPanel::documentMeant() const {
  const QStringList chosen = selectedFiles();
  if (name_->text().isEmpty() || chosen.isEmpty()) return {};
  const QString path = chosen.constFirst();
  return acceptMode() == AcceptSave ? documentName(path) : path;
}

}  // namespace quorvane
