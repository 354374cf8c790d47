#include "batch/LatticePicture.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace quorvane {
namespace {

/// One colour to be blended over others; components 0 to 1, as single-precision as the view passes them.
struct Layer {
  float rgb[3];
  float alpha;
};

/// A frame buffer with 8 bits a component, y upwards.
class FrameBuffer {
 public:
  FrameBuffer(int width, int height) : image_{width, height, {}} {
    image_.rgb.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 3, 0);
  }

  /// Blends a layer over the pixels from x, y to before x + side, y + side that lie inside.
  void blendSquare(int x, int y, int side, const Layer& layer) {
    const int endX = std::min(x + side, image_.width);
    const int endY = std::min(y + side, image_.height);
    for (int py = y; py < endY; ++py) {
      std::uint8_t* pixel = pixelAt(x, py);
      for (int px = x; px < endX; ++px)
        for (const float component : layer.rgb) {
          *pixel = blended(*pixel, component, layer.alpha);
          ++pixel;
        }
    }
  }

  Image take() { return std::move(image_); }

 private:
  std::uint8_t* pixelAt(int x, int y) {
    const auto row = static_cast<std::size_t>(image_.height - 1 - y);
    return image_.rgb.data() +
           3 * (row * static_cast<std::size_t>(image_.width) + static_cast<std::size_t>(x));
  }
  static std::uint8_t blended(std::uint8_t below, float component, float alpha) {
    constexpr float full = 255.0F;
    const float value = component * alpha + static_cast<float>(below) / full * (1.0F - alpha);
    return static_cast<std::uint8_t>(std::lround(value * full));
  }

  Image image_;
};

/// As the view's frame buffer limits them; what is not a number counts as 0.
float clamped(double value) {
  const auto single = static_cast<float>(value);
  return single > 0.0F ? std::min(single, 1.0F) : 0.0F;
}

Layer layerOf(const LatticeModel& model, int type, int i, int j) {
  const double alpha =
      model.varMobileHistory[type][i][j] / model.varMobileHistoryMax[type] * model.getPixelAlpha(type);
  return {{clamped(model.getPixelColorR(type)), clamped(model.getPixelColorG(type)),
           clamped(model.getPixelColorB(type))},
          clamped(alpha)};
}

/// The pixel types from one to before another.
Image drawTypes(const LatticeModel& model, int from, int end, int scale) {
  const int imax = model.getIMax(), jmax = model.getJMax();
  const bool gridLines = scale > 8;
  const int inset = gridLines ? 2 : 0;
  const int side = gridLines ? scale - 2 : scale + 1;
  FrameBuffer frame(imax * scale, jmax * scale);
  for (int i = 0; i < imax; ++i)
    for (int j = 0; j < jmax; ++j)
      for (int type = from; type < end; ++type) {
        const Layer layer = layerOf(model, type, i, j);
        // A layer that lets everything through leaves every pixel as it is.
        if (layer.alpha > 0.0F) frame.blendSquare(i * scale + inset, j * scale + inset, side, layer);
      }
  return frame.take();
}

/// Images of one height, from left to right.
Image sideBySide(const std::vector<Image>& panels) {
  Image all{-kPanelGap, panels.front().height, {}};
  for (const Image& panel : panels) all.width += panel.width + kPanelGap;
  for (int y = 0; y < all.height; ++y)
    for (const Image& panel : panels) {
      if (&panel != &panels.front()) all.rgb.insert(all.rgb.end(), std::size_t{3} * kPanelGap, kPanelGapGrey);
      const std::ptrdiff_t rowBytes = std::ptrdiff_t{3} * panel.width;
      const auto row = panel.rgb.begin() + y * rowBytes;
      all.rgb.insert(all.rgb.end(), row, row + rowBytes);
    }
  return all;
}

}  // namespace

Image drawLattice(const LatticeModel& model, int scale) {
  return drawTypes(model, 0, model.getNumPixelTypes(), scale);
}

Image drawTrace(const LatticeModel& model, int type, int scale) {
  return drawTypes(model, type, type + 1, scale);
}

Image drawLatticeAndTraces(const LatticeModel& model, int scale) {
  std::vector<Image> panels = {drawLattice(model, scale)};
  for (int type = 0; type < model.getNumPixelTypes(); ++type) panels.push_back(drawTrace(model, type, scale));
  return sideBySide(panels);
}

}  // namespace quorvane
