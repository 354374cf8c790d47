#pragma once

#include <QComboBox>

namespace quorvane {

/// A pop-up list whose chosen title ends in an ellipsis where there is no room.
class ElidedComboBox : public QComboBox {
  Q_OBJECT

 public:
  using QComboBox::QComboBox;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace quorvane
