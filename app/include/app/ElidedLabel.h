#pragma once

#include "app/CaptionedLabel.h"

namespace quorvane {

/// A one-line plain text label that elides its text if it does not fit, and then shows it whole in its tool
/// tip. Its text does not affect the layout.
class ElidedLabel : public CaptionedLabel {
  Q_OBJECT

 public:
  using CaptionedLabel::CaptionedLabel;

  QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QRect textRect() const;
  QString elidedText() const;
};

}  // namespace quorvane
