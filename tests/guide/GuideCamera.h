#pragma once

#include <QAbstractButton>
#include <QImage>
#include <QString>
#include <memory>

#include "app/MainWindow.h"

namespace quorvane {

/// Drives a main window by keys and clicks and saves pictures of its parts. Throws std::runtime_error if an
/// action fails.
class GuideCamera {
 public:
  GuideCamera();

  GraphicalLatticeModelGL& model() { return window_->model(); }

  void open(const QString& path);
  /// Opens a document that is refused, so that the status line shows the reason.
  void openRefused(const QString& path);
  void click(const char* button);
  void choose(const char* list, const QString& item);
  void type(const char* field, const QString& text);
  void press(const char* control, Qt::Key key, int times = 1);
  /// Makes sweeps without the run loop, so that their number is exact.
  void sweep(int count);
  /// Runs by the button Run until the given number of sweeps, without stopping the run.
  void runTo(int sweeps);

  /// Presses the mouse in the view and drags it along points given in sites; the button stays down.
  void paintStroke(std::initializer_list<QPointF> sites);
  void endStroke();

  QImage wholeWindow();
  QImage partOfWindow(const char* control);
  QImage partOfWindow(const QRect& part);

 private:
  QWidget& control(const char* name);
  void settle();

  std::unique_ptr<MainWindow> window_;
};

}  // namespace quorvane
