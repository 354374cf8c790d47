#pragma once

#include <QFileDialog>
#include <QList>
#include <QTemporaryDir>
#include <QUrl>

QT_BEGIN_NAMESPACE
class QLineEdit;
QT_END_NAMESPACE

namespace quorvane {

/// Qt's own modal panel for files, on every desktop, with room for more beside its list. Has home and the
/// examples' folder at its side. Lists files by their names and kinds, and reads none.
class NamedFilesPanel : public QFileDialog {
  Q_OBJECT

 public:
  ~NamedFilesPanel() override;

  /// Runs the panel. The path, or an empty string if the user has cancelled.
  QString choose();

 protected:
  /// Begins in a folder; in the user's home where it is gone. placeholder: some empty folder, which has to
  /// exist until the constructor returns.
  NamedFilesPanel(QWidget* parent, const QString& title, const QString& folder,
                  const QTemporaryDir& placeholder = QTemporaryDir());

  enum class PlaceAt { kTop, kBottom };
  /// Adds a folder to those at the side.
  void addPlace(const QString& folder, PlaceAt end);

  /// The field with the name.
  QLineEdit& name() const { return *name_; }
  /// The path that the name in the field means, empty where there is none.
  QString pathMeant() const;
  /// Ends the panel with a path.
  void acceptPath(const QString& path);

 private:
  void addPlaces();

  QString folder_, placeholder_, chosen_;
  QList<QUrl> ownPlaces_;
  QLineEdit* name_;
};

}  // namespace quorvane
