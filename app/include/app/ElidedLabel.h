#pragma once

#include "app/CaptionedLabel.h"

namespace quorvane {

/// A one-line plain text label that ends in an ellipsis where there is no room, and shows the whole text in
/// its tool tip then. Its text never asks the layout for room.
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
