#pragma once

#include <QComboBox>

namespace quorvane {

/// A combo box that elides the chosen title if it does not fit.
class ElidedComboBox : public QComboBox {
  Q_OBJECT

 public:
  using QComboBox::QComboBox;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace quorvane
