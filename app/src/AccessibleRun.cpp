#include "AccessibleRun.h"

#include <QAccessible>
#include <QTimer>
#include <chrono>

#include "ListItems.h"
#include "app/FixedDecimals.h"
#include "app/MainWindow.h"
#include "app/PopulationPlot.h"
#include "model/SiteCounts.h"
#include "ui_MainWindow.h"

namespace quorvane {
namespace {

void describe(QWidget& widget, const QString& description) {
  if (widget.accessibleDescription() != description) widget.setAccessibleDescription(description);
}

}  // namespace

AccessibleRun::AccessibleRun(Ui::MainWindow& ui, const PopulationPlot& plot, QObject* parent)
    : QObject(parent), ui_(ui), plot_(plot) {
  tell();
  auto* timer = new QTimer(this);
  connect(timer, &QTimer::timeout, this, &AccessibleRun::tell);
  timer->start(std::chrono::seconds(1));
}

void AccessibleRun::tell() {
  describe(*ui_.myGraphicalLatticeModel, aboutLattice());
  describe(*ui_.plotPopulations, aboutPlot());
  if (toldStatus_ == ui_.statusLine->text()) return;
  toldStatus_ = ui_.statusLine->text();
  QAccessibleEvent event(ui_.statusLine, QAccessible::NameChanged);
  QAccessible::updateAccessibility(&event);
}

QString AccessibleRun::shareOf(int type, double share) const {
  return MainWindow::tr("%1 %2 %").arg(pixelTitle(*ui_.myGraphicalLatticeModel, type),
                                       fixedDecimals(100.0 * share, 1));
}

QString AccessibleRun::aboutLattice() const {
  const LatticeModel& model = *ui_.myGraphicalLatticeModel;
  if (model.getIMax() == 0) return MainWindow::tr("No model yet.");
  const SiteCounts sites = countSites(model);
  QStringList parts;
  for (int type = 0; type < model.getNumPixelTypes(); ++type)
    parts += shareOf(type, shareOfSites(sites, type));
  return MainWindow::tr("%1 × %2 sites: %3.").arg(model.getIMax()).arg(model.getJMax()).arg(parts.join(", "));
}

QString AccessibleRun::aboutPlot() const {
  const QString help = ui_.plotPopulations->toolTip();
  const int last = plot_.numPoints() - 1;
  if (last < 0) return MainWindow::tr("%1 No points yet.").arg(help);
  const auto latest = [&](const QComboBox& list) {
    // After an incomplete document there are points but no lists yet.
    if (list.currentIndex() < 0) return MainWindow::tr("no type");
    return shareOf(list.currentIndex(), plot_.share(list.currentIndex(), last));
  };
  return MainWindow::tr("%1 The last of %2 points: %3 in red, %4 in green.")
      .arg(help, QString::number(last + 1), latest(*ui_.listSelectPixelType), latest(*ui_.listPaintType));
}

}  // namespace quorvane
