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

/// Announces to assistive technology what changes during a run: the status line, and the shares of the types
/// as descriptions of the lattice and the plot. At most once a second, to avoid a flood of events.
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
