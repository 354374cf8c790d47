#pragma once

#include <QRectF>
#include <QWidget>
#include <cstdint>

namespace quorvane {

/// Two series of up to 256 values as square markers 5 points wide on white, the first red, the second green.
///
/// Independent of the model: the owner sets the values and requests the redraw. Coordinates are in points, y
/// upwards. With the focus, if the owner's focus policy allows it, the plot also shows a frame. Marker edges
/// are rounded to whole pixels, so markers are drawn without blending. Main thread only.
class GraphicalPlot : public QWidget {
  Q_OBJECT

 public:
  /// Points per series.
  static constexpr int kMaxPoints = 256;

  /// State 0, no points, all values 0.
  explicit GraphicalPlot(QWidget* parent = nullptr);

  /// Markers are drawn in state 1 only.
  void setState(std::int32_t state);
  /// The number of points per series, 0 to 256. The points are spread over the width as if there were that
  /// many; of more than 256 the rest is not drawn, of fewer than 0 none.
  void setXMax(std::int32_t points);
  /// Sets a value of series 0 or 1 at index 0 to 255: 0 is the bottom of the view, 1 the top. Other indices
  /// have no effect.
  void setXYValue(std::int32_t series, std::int32_t index, double value);
  /// Asks for a redraw.
  void refreshPlot();

  /// Fills the background of a rectangle and draws all markers. During a paint event only.
  void drawRect(const QRectF& rect);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void drawFocusFrame();

  static constexpr int kSeries = 2;

  std::int32_t varMyState = 0;
  std::int32_t varXmax = 0;
  double varYData[kSeries][kMaxPoints] = {};
};

}  // namespace quorvane
