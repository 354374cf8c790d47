#include <QApplication>
#include <cstdio>

#include "view/GraphicalLatticeModelGL.h"

/// Prints whether the view can be drawn in this environment.
int main(int argc, char** argv) {
  using quorvane::GraphicalLatticeModelGL;
  QSurfaceFormat::setDefaultFormat(GraphicalLatticeModelGL::surfaceFormat());
  const QApplication application(argc, argv);
  std::puts(GraphicalLatticeModelGL::canDraw() ? "yes" : "no");
}
