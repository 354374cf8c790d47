#pragma once

#include <QImage>

#include "output/LatticePicture.h"

namespace quorvane {

/// The same pixels in a buffer of the toolkit's own.
inline QImage toQImage(const Image& image) {
  const int bytesPerLine = 3 * image.width;
  return QImage(image.rgb.data(), image.width, image.height, bytesPerLine, QImage::Format_RGB888).copy();
}

}  // namespace quorvane
