#pragma once

#include <QLabel>
#include <QString>

namespace quorvane {

/// A label that shows a value. A screen reader reads its caption with it, "Parameter: 0.250", and hears of
/// every change.
///
/// A label with an accessible name instead of a caption is read in the same way but tells nobody when its
/// text changes, which suits one that changes all the time.
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
