#pragma once

#include <QTimer>
#include <QWidget>

#include "model/LatticeModel.h"

QT_BEGIN_NAMESPACE
class QLabel;
class QTextEdit;
QT_END_NAMESPACE

namespace quorvane {

struct ParsedDocument;

/// Shows of a document what opening it would bring, without opening it: the lattice, sizes, pixel types with
/// their colours and rules, or the line that opening would say. Reads regular files of up to kLargest bytes
/// and makes no draws. Texts and picture are for reading only, by a screen reader too.
class DocumentPreview : public QWidget {
  Q_OBJECT

 public:
  static constexpr qint64 kLargest = qint64{4} << 20;

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
  void showDocument(const QByteArray& text);
  void showPicture(const ParsedDocument& document);

  const LatticeModel& model_;
  QString wanted_, shown_;
  QTimer whenIdle_;
  QLabel* picture_;
  QTextEdit* text_;
};

}  // namespace quorvane
