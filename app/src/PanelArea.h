#pragma once

#include <QScrollArea>

namespace quorvane {

/// A panel of controls that scrolls where it has no room. A control that takes the focus comes into sight,
/// and the whole of its group with it where there is room; the area itself takes no focus and draws no frame.
class PanelArea : public QScrollArea {
  Q_OBJECT

 public:
  /// Takes the panel, whose groups hold its controls. Its size limits are the area's business from now on.
  explicit PanelArea(QWidget& panel);

  QSize minimumSizeHint() const override { return {0, 0}; }
  /// The width in which every group can be in sight as a whole, though not all of them at once.
  int widthForAnyGroup() const;

 signals:
  /// The panel may need another size than before.
  void panelChanged();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  void reveal(const QWidget& control);
};

}  // namespace quorvane
