#include "output/LatticePicture.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "model/DrawnSite.h"

namespace quorvane {
namespace {

/// A colour to blend; components 0 to 1 in single precision, as the view passes them.
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

  /// Blends a layer over the pixels from x, y to before x + side, y + side that are inside the buffer.
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

/// Clamped as by the view's frame buffer; NaN counts as 0.
float clamped(float value) { return value > 0.0F ? std::min(value, 1.0F) : 0.0F; }

Layer layerOf(const LatticeModel& model, int type, int i, int j) {
  const TypeInk ink = inkOf(model, type);
  return {{clamped(ink.red), clamped(ink.green), clamped(ink.blue)},
          clamped(ink.alphaOf(model.varMobileHistory[type][i][j]))};
}

/// The pixel types from `from` to before `end`.
Image drawTypes(const LatticeModel& model, int from, int end, int scale) {
  const int imax = model.getIMax(), jmax = model.getJMax();
  const SiteSquare square = siteSquare(scale);
  const int inset = square.inset, side = scale + square.reach;
  FrameBuffer frame(imax * scale, jmax * scale);
  for (int i = 0; i < imax; ++i)
    for (int j = 0; j < jmax; ++j)
      for (int type = from; type < end; ++type) {
        const Layer layer = layerOf(model, type, i, j);
        // A layer of alpha 0 changes no pixel.
        if (layer.alpha > 0.0F) frame.blendSquare(i * scale + inset, j * scale + inset, side, layer);
      }
  return frame.take();
}

/// Copies an image of the same height into another, from the column x onwards.
void paste(const Image& panel, int x, Image& all) {
  const std::ptrdiff_t panelRow = std::ptrdiff_t{3} * panel.width, row = std::ptrdiff_t{3} * all.width;
  for (int y = 0; y < panel.height; ++y)
    std::copy_n(panel.rgb.begin() + y * panelRow, panelRow,
                all.rgb.begin() + y * row + std::ptrdiff_t{3} * x);
}

}  // namespace

Image drawLattice(const LatticeModel& model, int scale) {
  return drawTypes(model, 0, model.getNumPixelTypes(), scale);
}

Image drawTrace(const LatticeModel& model, int type, int scale) {
  return drawTypes(model, type, type + 1, scale);
}

Image drawLatticeAndTraces(const LatticeModel& model, int scale) {
  const int numTypes = model.getNumPixelTypes();
  const Image lattice = drawLattice(model, scale);
  const int step = lattice.width + kPanelGap;
  Image all{lattice.width + numTypes * step, lattice.height, {}};
  all.rgb.assign(static_cast<std::size_t>(all.width) * static_cast<std::size_t>(all.height) * 3,
                 kPanelGapGrey);
  paste(lattice, 0, all);
  for (int type = 0; type < numTypes; ++type) paste(drawTrace(model, type, scale), (type + 1) * step, all);
  return all;
}

}  // namespace quorvane
