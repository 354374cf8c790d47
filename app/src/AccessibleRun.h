#pragma once

#include <QObject>
#include <QString>

QT_BEGIN_NAMESPACE
namespace Ui {
class MainWindow;
}
QT_END_NAMESPACE

namespace quorvane {

class PopulationPlot;

/// Tells assistive technology what a run changes all the time: the status line, and the shares of the types
/// as the descriptions of the lattice and of the plot. At most once a second, so that nobody is flooded.
class AccessibleRun : public QObject {
 public:
  /// Both must outlive its last event.
  AccessibleRun(Ui::MainWindow& ui, const PopulationPlot& plot, QObject* parent);

 private:
  void tell();
  QString aboutLattice() const;
  QString aboutPlot() const;
  QString shareOf(int type, double share) const;

  Ui::MainWindow& ui_;
  const PopulationPlot& plot_;
  QString toldStatus_;
};

}  // namespace quorvane
