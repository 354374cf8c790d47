#include "LiteralBlend.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace quorvane {
namespace {

/// True if the rectangle of a column or row covers the centre of a pixel.
bool covers(int site, int pixel, int scale) {
  const double middle = pixel + 0.5, corner = static_cast<double>(site) * scale;
  const bool gaps = scale > 8;
  const double start = gaps ? corner + 2.0 : corner;
  const double end = gaps ? start + scale - 2.0 : start + scale + 1.0;
  return middle > start && middle < end;
}

double limited(double value) { return std::clamp(value, 0.0, 1.0); }

double blended(double below, double colour, double alpha) {
  return std::floor((limited(colour) * alpha + below * (1.0 - alpha)) * 255.0 + 0.5) / 255.0;
}

}  // namespace

Image literalBlend(const LatticeModel& model, int from, int end, int scale) {
  Image image{model.getIMax() * scale, model.getJMax() * scale, {}};
  for (int y = image.height - 1; y >= 0; --y)
    for (int x = 0; x < image.width; ++x) {
      double pixel[3] = {};
      for (int i = std::max(0, x / scale - 1); i <= x / scale; ++i)
        for (int j = std::max(0, y / scale - 1); j <= y / scale; ++j)
          for (int t = from; t < end && covers(i, x, scale) && covers(j, y, scale); ++t) {
            const double alpha = limited(model.varMobileHistory[t][i][j] / model.varMobileHistoryMax[t] *
                                         model.getPixelAlpha(t));
            const double colour[] = {model.getPixelColorR(t), model.getPixelColorG(t),
                                     model.getPixelColorB(t)};
            for (int c = 0; c < 3; ++c) pixel[c] = blended(pixel[c], colour[c], alpha);
          }
      for (const double component : pixel)
        image.rgb.push_back(static_cast<std::uint8_t>(std::lround(component * 255.0)));
    }
  return image;
}

int largestDifference(const Image& a, const Image& b) {
  if (a.width != b.width || a.height != b.height || a.rgb.size() != b.rgb.size()) return 256;
  int largest = 0;
  for (std::size_t k = 0; k < a.rgb.size(); ++k)
    largest = std::max(largest, std::abs(static_cast<int>(a.rgb[k]) - static_cast<int>(b.rgb[k])));
  return largest;
}

}  // namespace quorvane
