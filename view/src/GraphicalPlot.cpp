#include "view/GraphicalPlot.h"

#include <QPaintEvent>
#include <QPainter>
#include <algorithm>

namespace quorvane {
namespace {

constexpr double kLeftMargin = 5.0;
constexpr double kMarkerSide = 5.0;

}  // namespace

GraphicalPlot::GraphicalPlot(QWidget* parent) : QWidget(parent) {}

void GraphicalPlot::setState(std::int32_t state) { varMyState = state; }

void GraphicalPlot::setXMax(std::int32_t points) { varXmax = points; }

void GraphicalPlot::setXYValue(std::int32_t series, std::int32_t index, double value) {
  if (series < 0 || series >= kSeries || index < 0 || index >= kMaxPoints) return;
  varYData[series][index] = value;
}

void GraphicalPlot::refreshPlot() { update(); }

void GraphicalPlot::drawRect(const QRectF& rect) {
  QPainter painter(this);
  painter.translate(0.0, height());
  painter.scale(1.0, -1.0);
  painter.fillRect(rect, Qt::white);
  if (varMyState != 1) return;

  const double step = (width() - kLeftMargin) / varXmax;
  const auto fillMarker = [&](double x, double value, Qt::GlobalColor color) {
    painter.fillRect(QRectF(x, value * height() - kMarkerSide / 2, kMarkerSide, kMarkerSide), color);
  };
  for (int k = 0; k < std::min(varXmax, kMaxPoints); ++k) {
    const double x = kLeftMargin + k * step - kMarkerSide / 2;
    fillMarker(x, varYData[0][k], Qt::red);
    fillMarker(x, varYData[1][k], Qt::green);
  }
}

void GraphicalPlot::drawFocusFrame() {
  // The style's focus frame would tint the whole plot.
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::Highlight));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void GraphicalPlot::paintEvent(QPaintEvent* event) {
  const QRectF rect = event->rect();
  drawRect(QRectF(rect.x(), height() - rect.bottom(), rect.width(), rect.height()));
  if (hasFocus()) drawFocusFrame();
}

}  // namespace quorvane
