#pragma once

#include <QImage>

#include "output/LatticePicture.h"

namespace quorvane {

/// A copy of the pixels as a QImage.
inline QImage toQImage(const Image& image) {
  const int bytesPerLine = 3 * image.width;
  return QImage(image.rgb.data(), image.width, image.height, bytesPerLine, QImage::Format_RGB888).copy();
}

}  // namespace quorvane
