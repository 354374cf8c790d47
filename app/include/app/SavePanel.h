#pragma once

#include <QString>
#include <string_view>

#include "app/NamedFilesPanel.h"

namespace quorvane {

/// The folder and the name without extension that a panel suggests; the name may be empty.
struct SuggestedFile {
  QString folder, baseName;
};

/// A result of a document: its name, in the folder that was used last or else the document's. Where there is
/// no document, a name of that kind of result.
SuggestedFile suggestedFile(const QString& lastFolder, const QString& document, const QString& otherwise);

/// Asks for the name of a file of one kind.
///
/// The name gets the kind's extension where it has another or none, before the panel asks whether a file of
/// that name may be replaced. A folder, a device and a pipe are refused in one line: writing to a pipe may
/// wait for ever.
class SavePanel : public NamedFilesPanel {
  Q_OBJECT

 public:
  /// kind: what the filter calls such files. suffix: without the dot.
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

/// What became of a file, and the line that says so.
struct WriteResult {
  bool saved = false;
  QString line;
};

/// The line that says why a file was not saved.
QString notSaved(const QString& path, const QString& reason);

/// Replaces a file whole, or leaves it as it was.
WriteResult writeResult(const QString& path, std::string_view content);

}  // namespace quorvane
