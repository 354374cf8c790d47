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

/// Shows of a document what opening it would bring, without opening it: the lattice, sizes, pixel types with
/// their colours and rules, or the line that opening would say. Reads what opening would
/// read and makes no draws. Texts and picture are for reading only, by a screen reader too.
class DocumentPreview : public QWidget {
  Q_OBJECT

 public:
  /// model: the one that would open the document, which outlives the preview; what its rows hold counts.
  explicit DocumentPreview(const LatticeModel& model, QWidget* parent = nullptr);

  /// Shows a document as soon as nothing else waits, so that a list can be walked quickly; until then, and
  /// for an empty path or no document, nothing.
  void show(const QString& path);
  /// The document that is shown; empty while there is none.
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
