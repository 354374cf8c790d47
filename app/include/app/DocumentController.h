#pragma once

#include <QObject>
#include <QString>
#include <string>

QT_BEGIN_NAMESPACE
class QMainWindow;
namespace Ui {
class MainWindow;
}
QT_END_NAMESPACE

namespace quorvane {

class GraphicalLatticeModelGL;
class RunController;

/// Opens and saves the system as a document. Remembers the folder of the last document and the kept work that
/// it offers.
class DocumentController : public QObject {
  Q_OBJECT

 public:
  /// All outlive the controller. Connects its buttons. window: its title and file path name the document.
  DocumentController(QMainWindow& window, Ui::MainWindow& ui, RunController& run);

  void buttonOpenSystemClicked();
  void buttonSaveSystemClicked();

  /// Reports a file with work kept by an earlier window, and whether there are more, and makes Open start
  /// with that file.
  void offerKeptWork(const QString& path, int others);

 signals:
  /// A system was opened, possibly from an incomplete document.
  void systemStarted();
  /// The system was saved as this document.
  void systemSaved(const std::string& document);

 private:
  void open(const QString& path);
  void save(const QString& path);
  void showDocumentInTitle(const QString& path);

  QMainWindow& window_;
  Ui::MainWindow& ui_;
  GraphicalLatticeModelGL& model_;
  RunController& run_;
  QString folder_, keptWork_;
};

}  // namespace quorvane
