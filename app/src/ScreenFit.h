#pragma once

#include <QMargins>
#include <QObject>
#include <QPointer>
#include <QScreen>
#include <QSize>
#include <QWidget>

namespace quorvane {

/// Keeps a window with its frame inside the available part of its screen, when it is shown, when it needs
/// more space than before, and when the screen or its available part changes. A user may still move or
/// enlarge it beyond that.
class ScreenFit : public QObject {
  Q_OBJECT

 public:
  /// The window must outlive it.
  explicit ScreenFit(QWidget& window);

  /// Sets the window's minimum size, limited by its screen.
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
