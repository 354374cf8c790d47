#include "app/PlotMenu.h"

#include <QFileInfo>

#include "MenuKey.h"
#include "app/PopulationPlot.h"
#include "app/SavePanel.h"

namespace quorvane {

PlotMenu::PlotMenu(QWidget& view, const PopulationPlot& plot)
    : view_(view), plot_(plot), menu_(new QMenu(tr("Shares of the lattice"), &view)) {
  menu_->setObjectName("menuPlot");
  menu_->setAccessibleName(tr("Shares of the lattice"));
  saveShares_ = menu_->addAction(tr("&Save Shares…"), this, &PlotMenu::saveShares);
  saveShares_->setObjectName("actionSaveShares");
  view_.setContextMenuPolicy(Qt::CustomContextMenu);
  connect(&view_, &QWidget::customContextMenuRequested, this, &PlotMenu::open);
  openMenuByShiftF10(view_);
}

void PlotMenu::open(QPoint position) {
  saveShares_->setEnabled(plot_.numPoints() > 0);
  menu_->popup(view_.mapToGlobal(position));
}

void PlotMenu::saveShares() {
  // A snapshot: a run continues while the panel is open.
  const std::string shares = plot_.csv();
  const SuggestedFile suggested = suggestedFile(folder_, view_.window()->windowFilePath(), tr("shares"));
  SavePanel panel(view_.window(), tr("Save the shares"), suggested, tr("Tables"), "csv");
  const QString path = panel.choose();
  if (path.isEmpty()) return;
  folder_ = QFileInfo(path).absolutePath();
  emit told(writeResult(path, shares).line);
}

}  // namespace quorvane
