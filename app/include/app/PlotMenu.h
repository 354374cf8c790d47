#pragma once

#include <QAction>
#include <QMenu>
#include <QObject>
#include <QWidget>

namespace quorvane {

class PopulationPlot;

/// The plot's context menu, which saves the plotted points.
///
/// Opens by the right button and, while the plot has the focus, by the menu key and Shift+F10. Main thread
/// only.
class PlotMenu : public QObject {
  Q_OBJECT

 public:
  /// view: shows the plot and gets a focus policy. All must outlive it.
  PlotMenu(QWidget& view, const PopulationPlot& plot);

 signals:
  /// One line for the user about the result.
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
