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
  const QString path = DocumentPanel(myWindow, orCurrent(folder), *myGraphicalLatticeModel).choose();
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
  const SaveResult result = saveDocument(*myGraphicalLatticeModel, fileOf(path));
  if (result.saved) {
    showDocumentInTitle(path);
    const QString note = QString::fromStdString(result.note);
    if (!note.isEmpty()) ui->statusLine->showMessage(QFileInfo(path).fileName() + ": " + note);
    return;
  }
  log(kLogSaveFailed);
  ui->statusLine->showMessage(notSaved(path, QString::fromStdString(result.reason)));
}

void MainViewController::showDocumentInTitle(const QString& path) {
  myWindow->setWindowFilePath(path);
  myWindow->setWindowTitle(QFileInfo(path).fileName() + " - Quorvane");
  ui->statusLine->refresh();
}

}  // namespace quorvane
