#pragma once

#include <QScrollArea>

namespace quorvane {

/// A panel of controls that scrolls if it does not fit. A control that gets the focus scrolls into view, with
/// its whole group if possible; the area itself takes no focus and draws no frame.
class PanelArea : public QScrollArea {
  Q_OBJECT

 public:
  /// Takes the panel, whose groups contain its controls. From then on the area controls its size limits.
  explicit PanelArea(QWidget& panel);

  QSize minimumSizeHint() const override { return {0, 0}; }
  /// The width at which every group fits, though not all at once.
  int widthForAnyGroup() const;

 signals:
  /// To be called when the size that the panel needs may have changed.
  void panelChanged();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  void reveal(const QWidget& control);
};

}  // namespace quorvane
