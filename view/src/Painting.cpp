#include <QMouseEvent>
#include <cmath>
#include <optional>

#include "view/GraphicalLatticeModelGL.h"

namespace quorvane {
namespace {

/// The index of the site at a coordinate, if there is one. Beyond the last site the index folds back.
std::optional<int> siteAt(double coordinate, double extent, double spacing, int sites) {
  if (!std::isfinite(coordinate)) return std::nullopt;
  if (coordinate >= extent) coordinate = extent - 1.0;
  const double cell = std::floor(coordinate / spacing);
  if (!std::isfinite(cell)) return std::nullopt;
  if (cell < 0.0) return sites > 0 ? std::optional(0) : std::nullopt;
  if (cell <= sites - 1) return static_cast<int>(cell);
  if (sites <= 1) return std::nullopt;
  const int folded = static_cast<int>(std::fmod(cell, sites - 1)) - 1;
  return folded < 0 ? std::nullopt : std::optional(folded);
}

}  // namespace

void GraphicalLatticeModelGL::mouseDown(double x, double y) {
  if (varMyState <= kNotInitialised) return;
  if (varPauseWhilePaint == 1) {
    varMyStateBeforePainting = varMyState;
    varMyState = kPausedForPainting;
  }
  varPainting = 1;
  varIHoverLast = -1;
  varJHoverLast = -1;
  mouseDragged(x, y);
}

void GraphicalLatticeModelGL::mouseDragged(double x, double y) {
  if (varPainting != 1) return;
  const auto i = siteAt(x, varMyWidth, varSiteSpacing, varImax);
  const auto j = siteAt(y, varMyHeight, varSiteSpacing, varJmax);
  if (!i || !j) return;
  // The hover position is not updated here, so every event of a stroke paints.
  if (*i == varIHoverLast && *j == varJHoverLast) return;
  paintSite(*i, *j);
}

void GraphicalLatticeModelGL::paintSite(int i, int j) {
  const int brush = varPaintbrushColor;
  if (brush < 0 || brush >= kMaxPixelTypes) return;
  paintSiteAs(i, j, brush);
  requestRedraw();
}

void GraphicalLatticeModelGL::mouseUp() {
  if (varPainting != 1) return;
  varPainting = 0;
  if (varPauseWhilePaint != 1) return;
  varMyState = varMyStateBeforePainting;
  if (varMyState == kRunning) startRun();
}

QPointF GraphicalLatticeModelGL::viewPoint(const QMouseEvent& event) const {
  // An event has the upper left corner of a device pixel; the site drawn there is the one at its centre.
  const double half = 0.5 / devicePixelRatioF();
  return {event.position().x() + half, height() - (event.position().y() + half)};
}

void GraphicalLatticeModelGL::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return QOpenGLWidget::mousePressEvent(event);
  const QPointF point = viewPoint(*event);
  mouseDown(point.x(), point.y());
}

void GraphicalLatticeModelGL::mouseMoveEvent(QMouseEvent* event) {
  if (!event->buttons().testFlag(Qt::LeftButton)) return;
  const QPointF point = viewPoint(*event);
  mouseDragged(point.x(), point.y());
}

void GraphicalLatticeModelGL::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return QOpenGLWidget::mouseReleaseEvent(event);
  mouseUp();
}

}  // namespace quorvane
