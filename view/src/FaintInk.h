#pragma once

class QOpenGLFramebufferObjectFormat;
class QOpenGLFunctions_2_1;

namespace quorvane {

/// True if rectangles of this alpha, even many on top of each other, leave every pixel of a framebuffer of
/// this format as it was, whatever their colour. Draws into a framebuffer of its own in the current context,
/// and changes the viewport, the colour and the blending. False also where that cannot be found out.
bool leavesEveryPixel(QOpenGLFunctions_2_1& gl, const QOpenGLFramebufferObjectFormat& format, float alpha);

/// The smallest alpha that must be drawn on framebuffers of this format: at most 1/512, below which a
/// component of 8 bits changes by less than half a step. Tries it with leavesEveryPixel.
float smallestVisibleAlpha(QOpenGLFunctions_2_1& gl, const QOpenGLFramebufferObjectFormat& format);

}  // namespace quorvane
