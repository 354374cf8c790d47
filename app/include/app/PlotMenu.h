#pragma once

#include <QAction>
#include <QMenu>
#include <QObject>
#include <QWidget>

namespace quorvane {

class PopulationPlot;

/// The plot's context menu, which saves what is plotted.
///
/// It opens by the right button, and by the menu key and Shift+F10 once the Tab key has gone to the plot.
/// Main thread only.
class PlotMenu : public QObject {
  Q_OBJECT

 public:
  /// view: shows the plot; the keyboard can come to it. All must outlive it.
  PlotMenu(QWidget& view, const PopulationPlot& plot);

 signals:
  /// One line for the user about what was done, or why it was not.
  void told(const QString& message);

 private:
  void open(QPoint position);
  void saveShares();

  QWidget& view_;
  const PopulationPlot& plot_;
  QMenu* menu_;
  QAction* saveShares_;
  QString folder_;
};

}  // namespace quorvane
