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

/// Opens and saves the system as a document. Remembers the folder of the last one, and the kept work that is
/// offered.
class DocumentController : public QObject {
  Q_OBJECT

 public:
  /// All outlive the controller. Connects its buttons with their handlers. window: its title and path name
  /// the document.
  DocumentController(QMainWindow& window, Ui::MainWindow& ui, RunController& run);

  void buttonOpenSystemClicked();
  void buttonSaveSystemClicked();

  /// Tells of work that an earlier window has kept in a file, and of others beside it, and lets Open begin
  /// with that file.
  void offerKeptWork(const QString& path, int others);

 signals:
  /// There is a system, by Open; also of a document that was cut short.
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
