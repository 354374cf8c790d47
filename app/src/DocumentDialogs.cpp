#include <QDir>
#include <QFileInfo>
#include <filesystem>

#include "app/DocumentFile.h"
#include "app/DocumentPanel.h"
#include "app/ExampleFolder.h"
#include "app/MainViewController.h"
#include "app/SavePanel.h"
#include "document/ModelDocument.h"
#include "ui_MainWindow.h"

namespace quorvane {
namespace {

/// One plain line to the platform's log.
void log(const QString& line) { qInfo().noquote() << line; }

std::filesystem::path fileOf(const QString& path) { return path.toStdU16String(); }

QString orCurrent(const QString& folder) { return folder.isEmpty() ? QDir::currentPath() : folder; }

}  // namespace

void MainViewController::buttonOpenSystemClicked() {
  const QString folder = folder_.isEmpty() ? exampleFolder() : folder_;
  DocumentPanel panel(myWindow, orCurrent(folder), *myGraphicalLatticeModel);
  if (folder_.isEmpty() && !keptWork_.isEmpty()) panel.selectFile(keptWork_);
  const QString path = panel.choose();
  if (path.isEmpty()) return log(kLogOpenCancelled);
  open(path);
}

void MainViewController::buttonSaveSystemClicked() {
  commitTypedNames();
  const SuggestedFile suggested = suggestedFile(folderToSaveIn(folder_), myWindow->windowFilePath(), {});
  const QString path =
      SavePanel(myWindow, tr("Save the model"), suggested, tr("Quorvane documents"), kDocumentSuffix)
          .choose();
  if (path.isEmpty()) return log(kLogSaveCancelled);
  save(path);
}

void MainViewController::open(const QString& path) {
  folder_ = QFileInfo(path).absolutePath();
  const OpenResult result =
      openDocument(*myGraphicalLatticeModel, fileOf(path), [this](const DocumentHeader& header) {
        ui->stepperNumPixelTypes->setValue(header.numTypes);
        ui->textNumPixelTypes->setText(QString::number(header.numTypes));
        ui->sliderWidthHeight->setValue(header.imax);
        ui->textWidthHeight->setText(QString::number(header.imax));
      });
  if (result.status == OpenStatus::kOpened || result.status == OpenStatus::kCutShort) emit systemStarted();
  if (result.status != OpenStatus::kOpened) {
    const QString message = openingMessage(path, result);
    log(result.status == OpenStatus::kUnreadable ? kLogNoLines : message);
    return ui->statusLine->showMessage(message);
  }
  awakenControls();
  focusRunOrStop();
  myGraphicalLatticeModel->update();
  showDocumentInTitle(path);
}

void MainViewController::save(const QString& path) {
  folder_ = QFileInfo(path).absolutePath();
  // Of a run the next text would be another.
  const std::string document = writeDocument(*myGraphicalLatticeModel);
  const SaveResult result = saveDocument(document, fileOf(path));
  if (result.saved) {
    emit systemSaved(document);
    showDocumentInTitle(path);
    const QString note = QString::fromStdString(result.note);
    if (!note.isEmpty()) ui->statusLine->showMessage(QFileInfo(path).fileName() + ": " + note);
    return;
  }
  log(kLogSaveFailed);
  ui->statusLine->showMessage(notSaved(path, QString::fromStdString(result.reason)));
}

void MainViewController::offerKeptWork(const QString& path, int others) {
  keptWork_ = path;
  const QString file = QFileInfo(path).fileName();
  ui->statusLine->showNotice(
      others == 0
          ? tr("Unsaved work was kept: Open... begins with %1").arg(file)
          : tr("Unsaved work was kept: Open... begins with %1, and has %2 more").arg(file).arg(others));
}

void MainViewController::showDocumentInTitle(const QString& path) {
  myWindow->setWindowFilePath(path);
  myWindow->setWindowTitle(QFileInfo(path).fileName() + " - Quorvane");
  ui->statusLine->refresh();
}

}  // namespace quorvane
