#pragma once

#include <QObject>
#include <QSize>

class QGridLayout;

namespace Ui {
class MainWindow;
}

namespace quorvane {

class PanelArea;

/// Lets the right column and the bottom strip of the window scroll where it has no room for them. Neither
/// ever leaves the room beside and below the lattice view's fixed margins.
///
/// In a window so narrow that no group of the strip would be in sight beside the column, the strip goes below
/// the column and has the window's whole width; in one narrower than the column, that scrolls sideways too.
class ScrollingPanels : public QObject {
  Q_OBJECT

 public:
  /// ui must outlive it.
  explicit ScrollingPanels(Ui::MainWindow& ui);

  /// The smallest size of the window in which nothing scrolls and the lattice view is comfortable to work
  /// with.
  QSize smallestSize() const;
  /// Whether nothing scrolls in a window of that size.
  bool fitTheMargins() const;

 signals:
  void smallestSizeChanged();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void arrange();

  QWidget& window_;
  QWidget& statusLine_;
  QGridLayout& grid_;
  QSize leastView_;
  int columnWidth_, stripHeight_;
  // In the order in which the keyboard and a screen reader go through them.
  PanelArea* strip_;
  PanelArea* column_;
  bool stacked_ = false;
};

}  // namespace quorvane
