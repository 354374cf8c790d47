#pragma once

#include <QString>
#include <string_view>

#include "app/NamedFilesPanel.h"

namespace quorvane {

/// The folder and the name without extension that a panel suggests; the name may be empty.
struct SuggestedFile {
  QString folder, baseName;
};

/// A suggestion for a result of the document: the document's name, in the last used folder or else in the
/// document's. Without a document, the name of that kind of result.
SuggestedFile suggestedFile(const QString& lastFolder, const QString& document, const QString& otherwise);

/// Asks for the name of a file of one kind.
///
/// The name gets the extension of the kind if it has another or none, before the panel asks whether to
/// replace an existing file. Folders, devices and pipes are refused in one line: writing to a pipe may block
/// for ever.
class SavePanel : public NamedFilesPanel {
  Q_OBJECT

 public:
  /// kind: the name of the kind of file in the filter. suffix: without the dot.
  SavePanel(QWidget* parent, const QString& title, const SuggestedFile& suggested, const QString& kind,
            const QString& suffix);

  /// Adds a row below the others.
  void addRow(QWidget* label, QWidget* field);

 protected:
  void accept() override;

 private:
  bool hasSuffix(const QString& path) const;

  QString suffix_;
};

/// The outcome of writing a file, and the line that reports it.
struct WriteResult {
  bool saved = false;
  QString line;
};

/// The line that reports why a file was not saved.
QString notSaved(const QString& path, const QString& reason);

/// Replaces a file completely, or does not change it.
WriteResult writeResult(const QString& path, std::string_view content);

}  // namespace quorvane
