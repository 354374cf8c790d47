#pragma once

#include <QFileDialog>
#include <QString>
#include <string_view>

namespace quorvane {

/// A modal panel that asks for the name of a file of one kind.
///
/// The name gets the kind's extension where it has another or none, before the panel asks whether a file of
/// that name may be replaced. Lists files by their names and never reads one.
class SavePanel : public QFileDialog {
  Q_OBJECT

 public:
  /// kind: what the filter calls such files. suffix: without the dot.
  SavePanel(QWidget* parent, const QString& title, const QString& kind, const QString& suffix);

  /// Begins in a folder with a name without extension.
  void suggest(const QString& folder, const QString& baseName);
  /// Adds a row below the others.
  void addRow(QWidget* label, QWidget* field);
  /// The file that the user chooses, or an empty string.
  QString run();

 protected:
  void accept() override;

 private:
  QString suffix_;
};

/// The folder and the name without extension for a result of a document: its own, or a name of that kind in
/// the folder that panels begin in where there is no document.
struct SuggestedFile {
  QString folder, baseName;
};
SuggestedFile suggestedFile(const QString& document, const QString& otherwise);

/// The line that says why a file was not saved.
QString notSaved(const QString& path, const QString& reason);

/// Replaces a file whole, or leaves it as it was. Empty if that went well, else one line that names the file
/// and the reason.
QString writeResult(const QString& path, std::string_view content);

}  // namespace quorvane
