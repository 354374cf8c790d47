#pragma once

#include <QObject>
#include <QSize>

class QGridLayout;

namespace Ui {
class MainWindow;
}

namespace quorvane {

class PanelArea;

/// Makes the right column and the bottom strip of the window scroll if they do not fit. Both always stay
/// within the space beside and below the lattice view's fixed margins.
///
/// If the window is so narrow that no group of the strip would be visible beside the column, the strip moves
/// below the column and gets the window's whole width; in a window narrower than the column, the column also
/// scrolls sideways.
class ScrollingPanels : public QObject {
  Q_OBJECT

 public:
  /// ui must outlive it.
  explicit ScrollingPanels(Ui::MainWindow& ui);

  /// The smallest window size at which nothing scrolls and the lattice view has a comfortable size.
  QSize smallestSize() const;
  /// Whether nothing scrolls at a window size.
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
  // In the tab order, in which screen readers read them too.
  PanelArea* strip_;
  PanelArea* column_;
  bool stacked_ = false;
};

}  // namespace quorvane
