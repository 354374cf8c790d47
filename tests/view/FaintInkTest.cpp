#include <gtest/gtest.h>

#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFramebufferObjectFormat>
#include <QOpenGLFunctions_2_1>
#include <cmath>
#include <limits>

#include "FaintInk.h"
#include "Lattices.h"

namespace quorvane {
namespace {

constexpr float kLimit = 1.0f / 512.0f;

class FaintInk : public ::testing::Test {
 protected:
  void SetUp() override {
    context_.setFormat(GraphicalLatticeModelGL::surfaceFormat());
    ASSERT_TRUE(context_.create());
    surface_.setFormat(context_.format());
    surface_.create();
    ASSERT_TRUE(context_.makeCurrent(&surface_));
    ASSERT_TRUE(gl_.initializeOpenGLFunctions());
  }

  static QOpenGLFramebufferObjectFormat framebuffer(GLenum pixels, int samples = 0) {
    QOpenGLFramebufferObjectFormat format;
    format.setInternalTextureFormat(pixels);
    format.setSamples(samples);
    return format;
  }

  QOffscreenSurface surface_;
  QOpenGLContext context_;
  QOpenGLFunctions_2_1 gl_;
};

TEST_F(FaintInk, LeavesPixelsOfEightBitsUpToHalfAStep) {
  const auto format = framebuffer(GL_RGBA8);
  for (const float alpha : {0.0f, 1e-40f, 1e-6f, 0.5f * kLimit, std::nextafter(kLimit, 0.0f)})
    EXPECT_TRUE(leavesEveryPixel(gl_, format, alpha)) << alpha;
  for (const float alpha : {1.01f / 510.0f, 1.0f / 255.0f, 0.5f, 1.0f})
    EXPECT_FALSE(leavesEveryPixel(gl_, format, alpha)) << alpha;
}

TEST_F(FaintInk, ChangesPixelsOfMoreBits) {
  for (const GLenum pixels : {GL_RGBA16, GL_RGBA32F}) {
    EXPECT_FALSE(leavesEveryPixel(gl_, framebuffer(pixels), 0.9f * kLimit)) << std::hex << pixels;
    EXPECT_TRUE(leavesEveryPixel(gl_, framebuffer(pixels), 0.0f)) << std::hex << pixels;
  }
}

TEST_F(FaintInk, IsDrawnOnFramebuffersThatCannotBeTried) {
  EXPECT_FALSE(leavesEveryPixel(gl_, framebuffer(GL_RGBA8, 4), 0.0f));
  EXPECT_FALSE(leavesEveryPixel(gl_, framebuffer(GL_NONE), 0.0f));
}

TEST_F(FaintInk, IsDrawnWhereItWouldChangeAPixelButForAlphaZero) {
  EXPECT_EQ(smallestVisibleAlpha(gl_, framebuffer(GL_RGBA8)), kLimit);
  EXPECT_EQ(smallestVisibleAlpha(gl_, framebuffer(GL_RGBA16)), std::numeric_limits<float>::denorm_min());
}

TEST_F(FaintInk, ThatIsTriedLeavesTheFramebufferThatWasBound) {
  GLint before = 0, after = 0;
  gl_.glGetIntegerv(GL_FRAMEBUFFER_BINDING, &before);
  smallestVisibleAlpha(gl_, framebuffer(GL_RGBA8));
  gl_.glGetIntegerv(GL_FRAMEBUFFER_BINDING, &after);
  EXPECT_EQ(after, before);
}

}  // namespace
}  // namespace quorvane
