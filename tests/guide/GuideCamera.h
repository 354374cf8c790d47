#pragma once

#include <QAbstractButton>
#include <QImage>
#include <QString>
#include <memory>

#include "app/MainWindow.h"

namespace quorvane {

/// A main window, used by keys and clicks, of which parts go to picture files. Throws std::runtime_error
/// where something does not go as it should.
class GuideCamera {
 public:
  GuideCamera();

  GraphicalLatticeModelGL& model() { return window_->model(); }

  void open(const QString& path);
  /// Opens a document that is refused, which the status line then says.
  void openRefused(const QString& path);
  void click(const char* button);
  void choose(const char* list, const QString& item);
  void type(const char* field, const QString& text);
  void press(const char* control, Qt::Key key, int times = 1);
  /// Makes sweeps without the run loop, so that their number is exact.
  void sweep(int count);
  /// Runs by the button Run until so many sweeps are done, and goes on running.
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
