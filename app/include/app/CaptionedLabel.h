#pragma once

#include <QLabel>
#include <QString>

namespace quorvane {

/// A label that shows a value. A screen reader reads it with its caption, "Parameter: 0.250", and is notified
/// of every change.
///
/// A label with an accessible name instead of a caption is read in the same way, but does not notify of
/// changes, which suits text that changes all the time.
class CaptionedLabel : public QLabel {
  Q_OBJECT
  Q_PROPERTY(QString caption READ caption WRITE setCaption)

 public:
  using QLabel::QLabel;

  const QString& caption() const { return caption_; }
  void setCaption(const QString& caption) { caption_ = caption; }

 private:
  QString caption_;
};

}  // namespace quorvane
