#include "app/DocumentController.h"

#include <QDir>
#include <QFileInfo>
#include <filesystem>

#include "ConnectButton.h"
#include "TypedNames.h"
#include "app/DocumentFile.h"
#include "app/DocumentPanel.h"
#include "app/ExampleFolder.h"
#include "app/RunController.h"
#include "app/SavePanel.h"
#include "document/ModelDocument.h"
#include "ui_MainWindow.h"

namespace quorvane {
namespace {

/// Writes one plain line to the platform's log.
void log(const QString& line) { qInfo().noquote() << line; }

std::filesystem::path fileOf(const QString& path) { return path.toStdU16String(); }

QString orCurrent(const QString& folder) { return folder.isEmpty() ? QDir::currentPath() : folder; }

}  // namespace

DocumentController::DocumentController(QMainWindow& window, Ui::MainWindow& ui, RunController& run)
    : window_(window), ui_(ui), model_(*ui.myGraphicalLatticeModel), run_(run) {
  connectButton(ui_.buttonOpenSystem, this, &DocumentController::buttonOpenSystemClicked);
  connectButton(ui_.buttonSaveSystem, this, &DocumentController::buttonSaveSystemClicked);
}

void DocumentController::buttonOpenSystemClicked() {
  const QString folder = folder_.isEmpty() ? exampleFolder() : folder_;
  DocumentPanel panel(&window_, orCurrent(folder), model_);
  if (folder_.isEmpty() && !keptWork_.isEmpty()) panel.selectFile(keptWork_);
  const QString path = panel.choose();
  if (path.isEmpty()) return log(kLogOpenCancelled);
  open(path);
}

void DocumentController::buttonSaveSystemClicked() {
  commitTypedNames(ui_);
  const SuggestedFile suggested = suggestedFile(folderToSaveIn(folder_), window_.windowFilePath(), {});
  const QString path =
      SavePanel(&window_, tr("Save the model"), suggested, tr("Quorvane documents"), kDocumentSuffix)
          .choose();
  if (path.isEmpty()) return log(kLogSaveCancelled);
  save(path);
}

void DocumentController::open(const QString& path) {
  folder_ = QFileInfo(path).absolutePath();
  const OpenResult result = openDocument(model_, fileOf(path), [this](const DocumentHeader& header) {
    run_.showSize(header.numTypes, header.imax);
  });
  if (result.status == OpenStatus::kOpened || result.status == OpenStatus::kCutShort) emit systemStarted();
  if (result.status != OpenStatus::kOpened) {
    const QString message = openingMessage(path, result);
    log(result.status == OpenStatus::kUnreadable ? kLogNoLines : message);
    return ui_.statusLine->showMessage(message);
  }
  run_.awakenControls();
  run_.focusRunOrStop();
  model_.update();
  showDocumentInTitle(path);
}

void DocumentController::save(const QString& path) {
  folder_ = QFileInfo(path).absolutePath();
  // Written only once: during a run a second text could differ from the saved one.
  const std::string document = writeDocument(model_);
  const SaveResult result = saveDocument(document, fileOf(path));
  if (result.saved) {
    emit systemSaved(document);
    showDocumentInTitle(path);
    const QString note = QString::fromStdString(result.note);
    if (!note.isEmpty()) ui_.statusLine->showMessage(QFileInfo(path).fileName() + ": " + note);
    return;
  }
  log(kLogSaveFailed);
  ui_.statusLine->showMessage(notSaved(path, QString::fromStdString(result.reason)));
}

void DocumentController::offerKeptWork(const QString& path, int others) {
  keptWork_ = path;
  const QString file = QFileInfo(path).fileName();
  ui_.statusLine->showNotice(
      others == 0
          ? tr("Unsaved work was kept: Open... begins with %1").arg(file)
          : tr("Unsaved work was kept: Open... begins with %1, and has %2 more").arg(file).arg(others));
}

void DocumentController::showDocumentInTitle(const QString& path) {
  window_.setWindowFilePath(path);
  window_.setWindowTitle(QFileInfo(path).fileName() + " - Quorvane");
  ui_.statusLine->refresh();
}

}  // namespace quorvane
