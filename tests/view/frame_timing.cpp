#include <QApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <cstdio>
#include <vector>

#include "Lattices.h"
#include "LiteralView.h"

// Prints the time of a frame with every rectangle drawn and with the transparent ones left out.

namespace quorvane {
namespace {

constexpr int kSites = 254;
constexpr int kFrames = 15;

/// The minimum of several frames, which is least affected by other load.
double fastestMilliseconds(GraphicalLatticeModelGL& view) {
  std::vector<double> times;
  for (int frame = 0; frame < kFrames; ++frame) {
    QElapsedTimer timer;
    timer.start();
    // Reading the frame back waits until it is drawn.
    view.grabFramebuffer();
    times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
  }
  return *std::ranges::min_element(times);
}

template <class View>
void timeFrames(const char* name, int width, int height, int types, bool traces) {
  auto view = shownView<View>(width, height);
  fillLattice(*view, types, kSites, kSites, scatteredTypes(types));
  if (traces)
    for (int type = 0; type < types; ++type)
      for (int i = 0; i < kSites; ++i)
        for (int j = 0; j < kSites; ++j) view->varMobileHistory[type][i][j] = 0.5;
  std::printf("%4d x %4d points  %2d types  %-10s %-22s %8.1f ms\n", width, height, types,
              traces ? "all traces" : "no traces", name, fastestMilliseconds(*view));
}

}  // namespace
}  // namespace quorvane

int main(int argc, char** argv) {
  using namespace quorvane;
  qputenv("LIBGL_ALWAYS_SOFTWARE", "1");
  QSurfaceFormat::setDefaultFormat(GraphicalLatticeModelGL::surfaceFormat());
  const QApplication application(argc, argv);
  for (const int types : {2, 10})
    for (const bool traces : {false, true}) {
      timeFrames<LiteralView>("every rectangle", 444, 444, types, traces);
      timeFrames<GraphicalLatticeModelGL>("transparent left out", 444, 444, types, traces);
    }
  timeFrames<LiteralView>("every rectangle", 1600, 1200, 10, false);
  timeFrames<GraphicalLatticeModelGL>("transparent left out", 1600, 1200, 10, false);
}
