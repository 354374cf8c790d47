#include <QOpenGLContext>
#include <QOpenGLFunctions_2_1>
#include <QOpenGLVersionFunctionsFactory>
#include <vector>

#include "model/DrawnSite.h"
#include "view/GraphicalLatticeModelGL.h"

namespace quorvane {
namespace {

constexpr int kColumnsAtATime = 16;

/// A column or row of sites and its extent in normalised device coordinates.
struct Band {
  int site;
  double from, to;
};

double normalised(double coordinate, double extent) { return 2.0 * (coordinate / extent) - 1.0; }

/// The bands across an extent in drawing order; if the sites do not fill it, they repeat.
std::vector<Band> bandsAcross(double extent, double spacing, int sites) {
  const SiteSquare square = siteSquare(spacing);
  std::vector<Band> bands;
  int site = 0;
  double start = square.inset;
  do {
    const double end = start + spacing + square.reach;
    bands.push_back({site, normalised(start, extent), normalised(end, extent)});
    site = site + 1 > sites - 1 ? 0 : site + 1;
    start = start + spacing;
  } while (start <= extent);
  return bands;
}

std::vector<TypeInk> inksOf(const ModelState& model) {
  std::vector<TypeInk> inks;
  inks.reserve(kMaxPixelTypes);
  for (int type = 0; type < model.varNumSiteTypes; ++type) inks.push_back(inkOf(model, type));
  return inks;
}

void drawSite(QOpenGLFunctions_2_1& gl, const ModelState& model, const std::vector<TypeInk>& inks,
              const Band& column, const Band& row) {
  for (std::size_t type = 0; type < inks.size(); ++type) {
    const TypeInk& ink = inks[type];
    const float alpha = ink.alphaOf(model.varMobileHistory[type][column.site][row.site]);
    // Blending with alpha 0 changes no pixel, and most rectangles have alpha 0.
    if (alpha == 0.0f) continue;
    gl.glColor4f(ink.red, ink.green, ink.blue, alpha);
    gl.glRectd(column.from, row.from, column.to, row.to);
  }
}

/// The functions of the current context; null unless it is desktop OpenGL 2.1.
QOpenGLFunctions_2_1* currentFunctions() {
  QOpenGLContext* context = QOpenGLContext::currentContext();
  if (context == nullptr || context->isOpenGLES()) return nullptr;
  auto* gl = QOpenGLVersionFunctionsFactory::get<QOpenGLFunctions_2_1>(context);
  return gl != nullptr && gl->initializeOpenGLFunctions() ? gl : nullptr;
}

}  // namespace

void GraphicalLatticeModelGL::paintGL() {
  pacer_.frameBegins();
  drawRect();
}

void GraphicalLatticeModelGL::resizeGL(int /*width*/, int /*height*/) { reshape(); }

void GraphicalLatticeModelGL::reshape() {
  if (context() == nullptr) return;
  makeCurrent();
  if (QOpenGLFunctions_2_1* gl = currentFunctions()) setViewport(*gl);
}

void GraphicalLatticeModelGL::setViewport(QOpenGLFunctions_2_1& gl) const {
  // Rounded like the size of the widget's framebuffer, so that the viewport matches it exactly.
  const QSize pixels = size() * devicePixelRatioF();
  gl.glViewport(0, 0, pixels.width(), pixels.height());
}

void GraphicalLatticeModelGL::drawRect() {
  QOpenGLWidget::paintGL();
  QOpenGLFunctions_2_1* gl = currentFunctions();
  if (gl == nullptr) return;

  // Qt sets its own viewport after a resize, which replaces the one from reshape.
  setViewport(*gl);
  gl->glClearColor(0.0f, 0.0f, 0.0f, 1.0f);
  gl->glClear(GL_COLOR_BUFFER_BIT);
  gl->glEnable(GL_BLEND);
  gl->glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);

  varMyWidth = width();
  varMyHeight = height();
  varSiteSpacing = varMyWidth / varImax;
  // With a site spacing of 0 or infinity the bands would never reach the end of the view.
  const bool hasSites = varImax > 0 && varJmax > 0 && !size().isEmpty();
  if (varMyState > kNotInitialised && hasSites) drawSites(*gl);

  // A frame ends with this call, drawn sites or not. Without an open primitive it only sets an error flag,
  // which nothing reads.
  gl->glEnd();
  gl->glFlush();
  emit frameDrawn();
}

void GraphicalLatticeModelGL::drawSites(QOpenGLFunctions_2_1& gl) const {
  const std::vector<Band> columns = bandsAcross(varMyWidth, varSiteSpacing, varImax);
  const std::vector<Band> rows = bandsAcross(varMyHeight, varSiteSpacing, varJmax);
  const std::vector<TypeInk> inks = inksOf(*this);
  int undrawnColumns = 0;
  for (const Band& column : columns) {
    for (const Band& row : rows) drawSite(gl, *this, inks, column, row);
    // A software renderer buffers rectangles until it is flushed, several megabytes for a whole frame.
    if (++undrawnColumns % kColumnsAtATime == 0) gl.glFlush();
  }
}

}  // namespace quorvane
