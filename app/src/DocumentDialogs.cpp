#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <filesystem>

#include "app/MainViewController.h"
#include "document/ModelDocument.h"
#include "ui_MainWindow.h"

namespace quorvane {
namespace {

constexpr const char* kSuffix = "quorvane";

/// One plain line to the platform's log.
void log(const QString& line) { qInfo().noquote() << line; }

std::filesystem::path fileOf(const QString& path) { return path.toStdU16String(); }

/// The file that the user chooses in the platform's modal panel, or an empty string.
QString runPanel(QFileDialog& panel) {
  panel.setNameFilter(QFileDialog::tr("Quorvane documents (*.quorvane)"));
  panel.setDefaultSuffix(kSuffix);
  if (panel.exec() != QDialog::Accepted || panel.selectedFiles().isEmpty()) return {};
  return panel.selectedFiles().constFirst();
}

/// A name with a dot has a suffix of its own, but Open lists only documents.
QString documentName(const QString& path) {
  return path.isEmpty() || QFileInfo(path).suffix() == kSuffix ? path : path + "." + kSuffix;
}

}  // namespace

void MainViewController::buttonOpenSystemClicked() {
  QFileDialog panel(myWindow, tr("Open a document"), folder_);
  panel.setFileMode(QFileDialog::ExistingFile);
  const QString path = runPanel(panel);
  if (path.isEmpty()) return log(kLogOpenCancelled);
  open(path);
}

void MainViewController::buttonSaveSystemClicked() {
  commitTypedNames();
  QFileDialog panel(myWindow, tr("Save the model"), folder_);
  panel.setAcceptMode(QFileDialog::AcceptSave);
  const QString chosen = runPanel(panel);
  const QString path = documentName(chosen);
  // The panel has asked about the name that was chosen, not about the one that was made of it.
  if (path.isEmpty() || (path != chosen && QFileInfo::exists(path) && !mayReplace(path)))
    return log(kLogSaveCancelled);
  save(path);
}

bool MainViewController::mayReplace(const QString& path) {
  const QString question =
      tr("%1 already exists. Do you want to replace it?").arg(QFileInfo(path).fileName());
  return QMessageBox::question(myWindow, tr("Save the model"), question, QMessageBox::Yes | QMessageBox::No,
                               QMessageBox::No) == QMessageBox::Yes;
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
  if (result.status == OpenStatus::kUnreadable) {
    log(QString::fromStdString(result.message));
    return report(path, tr("cannot be read as a document: %1").arg(QString::fromStdString(result.reason)));
  }
  if (result.status != OpenStatus::kOpened) {
    const QString message = QString::fromStdString(result.message);
    log(QFileInfo(path).fileName() + ": " + message);
    return report(path, message);
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
    if (!result.note.empty()) report(path, QString::fromStdString(result.note));
    return;
  }
  log(kLogSaveFailed);
  report(path, tr("was not saved: %1").arg(QString::fromStdString(result.reason)));
}

void MainViewController::report(const QString& path, const QString& message) {
  ui->statusLine->showMessage(QFileInfo(path).fileName() + ": " + message);
}

void MainViewController::showDocumentInTitle(const QString& path) {
  myWindow->setWindowTitle(QFileInfo(path).fileName() + " - Quorvane");
  ui->statusLine->refresh();
}

}  // namespace quorvane
