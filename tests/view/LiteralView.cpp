#include "LiteralView.h"

#include <QOpenGLContext>
#include <QOpenGLFunctions_2_1>
#include <QOpenGLVersionFunctionsFactory>

namespace quorvane {

void LiteralView::paintGL() {
  auto* gl = QOpenGLVersionFunctionsFactory::get<QOpenGLFunctions_2_1>(QOpenGLContext::currentContext());
  gl->initializeOpenGLFunctions();
  rectangles_ = 0;
  // Qt's own viewport cuts off the last pixel if the size in device pixels is not whole.
  const QSize pixels = size() * devicePixelRatioF();
  gl->glViewport(0, 0, pixels.width(), pixels.height());
  gl->glClearColor(0, 0, 0, 1);
  gl->glClear(GL_COLOR_BUFFER_BIT);
  gl->glEnable(GL_BLEND);
  gl->glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);

  varMyWidth = width();
  varMyHeight = height();
  varSiteSpacing = varMyWidth / varImax;
  const double inset = varSiteSpacing > 8.0 ? 2.0 : 0.0;
  int i = 0;
  double x = inset;
  do {
    int j = 0;
    double y = inset;
    do {
      drawSite(*gl, i, j, x, y);
      if (++j > varJmax - 1) j = 0;
      y = y + varSiteSpacing;
    } while (!(y > varMyHeight));
    if (++i > varImax - 1) i = 0;
    x = x + varSiteSpacing;
  } while (!(x > varMyWidth));
  gl->glFlush();
  emit frameDrawn();
}

void LiteralView::drawSite(QOpenGLFunctions_2_1& gl, int i, int j, double x, double y) {
  for (int t = 0; t < varNumSiteTypes; ++t) {
    const double alpha = varMobileHistory[t][i][j] / varMobileHistoryMax[t] * varSiteAlpha[t];
    gl.glColor4f(static_cast<float>(varSiteColor[t][0]), static_cast<float>(varSiteColor[t][1]),
                 static_cast<float>(varSiteColor[t][2]), static_cast<float>(alpha));
    const bool gaps = varSiteSpacing > 8.0;
    const double x1 = gaps ? x + varSiteSpacing - 2.0 : x + varSiteSpacing + 1.0;
    const double y1 = gaps ? y + varSiteSpacing - 2.0 : y + varSiteSpacing + 1.0;
    gl.glRectd(2.0 * (x / varMyWidth) - 1.0, 2.0 * (y / varMyHeight) - 1.0, 2.0 * (x1 / varMyWidth) - 1.0,
               2.0 * (y1 / varMyHeight) - 1.0);
    ++rectangles_;
  }
}

}  // namespace quorvane
