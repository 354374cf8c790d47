#pragma once

#include <QTimer>
#include <QWidget>
#include <string>

#include "model/LatticeModel.h"

QT_BEGIN_NAMESPACE
class QLabel;
class QTextEdit;
QT_END_NAMESPACE

namespace quorvane {

struct ParsedDocument;

/// Previews a document without opening it: the lattice, sizes, pixel types with their colours and rules, or
/// the message that opening would give. Reads as much as opening would and makes no draws. Texts and picture
/// are accessible to screen readers.
class DocumentPreview : public QWidget {
  Q_OBJECT

 public:
  /// model: the model that would open the document; it outlives the preview, and the entries in its rows
  /// count.
  explicit DocumentPreview(const LatticeModel& model, QWidget* parent = nullptr);

  /// Shows a document once the event queue is empty, so that keys can move quickly through a list; shows
  /// nothing until then, and for an empty path or a file that is not a document.
  void show(const QString& path);
  /// The path of the document that is shown; empty if there is none.
  const QString& shown() const { return shown_; }

 private:
  void clear();
  void read();
  void showDocument(const std::string& text);
  void showPicture(const ParsedDocument& document);

  const LatticeModel& model_;
  QString wanted_, shown_;
  QTimer whenIdle_;
  QLabel* picture_;
  QTextEdit* text_;
};

}  // namespace quorvane
