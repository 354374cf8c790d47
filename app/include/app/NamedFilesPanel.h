#pragma once

#include <QFileDialog>
#include <QTemporaryDir>

namespace quorvane {

/// Qt's own modal panel for files, on every desktop, with room for more beside its list. Lists files by their
/// names and kinds, and reads none.
class NamedFilesPanel : public QFileDialog {
  Q_OBJECT

 protected:
  /// Begins in a folder; in the user's home where it is gone. placeholder: an empty folder, for as long as
  /// the constructor works.
  NamedFilesPanel(QWidget* parent, const QString& title, const QString& folder,
                  const QTemporaryDir& placeholder = QTemporaryDir());

 private:
  QString folder_, placeholder_;
};

}  // namespace quorvane
