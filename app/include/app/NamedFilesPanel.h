#pragma once

#include <QFileDialog>
#include <QList>
#include <QTemporaryDir>
#include <QUrl>

QT_BEGIN_NAMESPACE
class QLineEdit;
QT_END_NAMESPACE

namespace quorvane {

/// Qt's own modal file panel, on every desktop, with room for more widgets beside its list and with home and
/// the examples' folder in its side bar. Lists files by name and kind, and reads none.
class NamedFilesPanel : public QFileDialog {
  Q_OBJECT

 public:
  ~NamedFilesPanel() override;

  /// Runs the panel. Returns the path, or an empty string if cancelled.
  QString choose();

 protected:
  /// Starts in a folder, or in the user's home if it is gone. placeholder: an empty folder that exists until
  /// the constructor returns.
  NamedFilesPanel(QWidget* parent, const QString& title, const QString& folder,
                  const QTemporaryDir& placeholder = QTemporaryDir());

  enum class PlaceAt { kTop, kBottom };
  /// Adds a folder to the side bar.
  void addPlace(const QString& folder, PlaceAt end);

  /// The field for the name.
  QLineEdit& name() const { return *name_; }
  /// The path of the name in the field, empty if there is none.
  QString pathMeant() const;
  /// Closes the panel with a path.
  void acceptPath(const QString& path);

 private:
  void addPlaces();

  QString folder_, placeholder_, chosen_;
  QList<QUrl> ownPlaces_;
  QLineEdit* name_;
};

}  // namespace quorvane
