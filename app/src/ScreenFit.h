#pragma once

#include <QMargins>
#include <QObject>
#include <QPointer>
#include <QScreen>
#include <QSize>
#include <QWidget>

namespace quorvane {

/// Keeps a window on the screen: whole, with its frame, inside the available part, whenever it is shown,
/// needs more room than before, or the screen or its available part changes. A user may still move or enlarge
/// it beyond that.
class ScreenFit : public QObject {
  Q_OBJECT

 public:
  /// The window must outlive it.
  explicit ScreenFit(QWidget& window);

  /// Makes that the smallest size of the window, as far as its screen has room for it.
  void setSmallestSize(QSize size);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QMargins frame() const;
  void followScreen();
  void limitSize();
  void moveInside();
  void fit();

  QWidget& window_;
  QSize smallest_;
  QMargins lastFrame_;
  QPointer<QScreen> screen_;
};

}  // namespace quorvane
