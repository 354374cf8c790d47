#include "FaintInk.h"

#include <QOpenGLFramebufferObject>
#include <QOpenGLFunctions_2_1>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>

namespace quorvane {
namespace {

/// A background in each column, from 0 to 1 in all components, and a row for the darkest and the brightest
/// ink. The change of a pixel is monotonic in the ink, so inks between these change no pixel that both leave.
constexpr int kLevels = 256, kInks = 2;
constexpr int kLayers = 40;

using Pixels = std::array<float, std::size_t{kLevels} * kInks * 4>;

double edge(int index, int count) { return 2.0 * index / count - 1.0; }

void drawBackgrounds(QOpenGLFunctions_2_1& gl) {
  gl.glDisable(GL_BLEND);
  for (int level = 0; level < kLevels; ++level) {
    const float component = static_cast<float>(level) / (kLevels - 1);
    gl.glColor4f(component, component, component, component);
    gl.glRectd(edge(level, kLevels), -1.0, edge(level + 1, kLevels), 1.0);
  }
}

void drawInks(QOpenGLFunctions_2_1& gl, float alpha) {
  gl.glEnable(GL_BLEND);
  gl.glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
  for (int row = 0; row < kInks; ++row) {
    const auto component = static_cast<float>(row);
    gl.glColor4f(component, component, component, alpha);
    for (int layer = 0; layer < kLayers; ++layer)
      gl.glRectd(-1.0, edge(row, kInks), 1.0, edge(row + 1, kInks));
  }
}

Pixels readPixels(QOpenGLFunctions_2_1& gl) {
  // As floats, since a format of more than 8 bits may change by less than a step of 8 bits.
  Pixels pixels{};
  gl.glReadPixels(0, 0, kLevels, kInks, GL_RGBA, GL_FLOAT, pixels.data());
  return pixels;
}

/// False where nothing was drawn or read, which must not count as pixels left alone.
bool showsBackgrounds(const Pixels& pixels) {
  for (std::size_t i = 0; i < pixels.size(); ++i) {
    const auto level = static_cast<float>(i / 4 % kLevels) / (kLevels - 1);
    if (!(std::abs(pixels[i] - level) < 0.5f / (kLevels - 1))) return false;
  }
  return true;
}

}  // namespace

bool leavesEveryPixel(QOpenGLFunctions_2_1& gl, const QOpenGLFramebufferObjectFormat& format, float alpha) {
  // The pixels of a multisampled framebuffer cannot be read.
  if (format.samples() > 0) return false;
  QOpenGLFramebufferObject framebuffer(QSize(kLevels, kInks), format);
  if (!framebuffer.bind()) return false;
  gl.glViewport(0, 0, kLevels, kInks);
  drawBackgrounds(gl);
  const Pixels before = readPixels(gl);
  drawInks(gl, alpha);
  const Pixels after = readPixels(gl);
  framebuffer.release();
  return showsBackgrounds(before) && before == after;
}

float smallestVisibleAlpha(QOpenGLFunctions_2_1& gl, const QOpenGLFramebufferObjectFormat& format) {
  constexpr float limit = 1.0f / 512.0f;
  for (const float alpha : {std::nextafter(limit, 0.0f), 0.9f * limit, 0.5f * limit, 0.1f * limit})
    if (!leavesEveryPixel(gl, format, alpha)) return std::numeric_limits<float>::denorm_min();
  return limit;
}

}  // namespace quorvane
