#include <QApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <vector>

#include "Lattices.h"
#include "LiteralView.h"
#include "document/ModelDocument.h"

// Prints the time of a frame with every rectangle drawn and with those left out that cannot be seen.

namespace quorvane {
namespace {

constexpr int kSites = 254;
constexpr int kSweeps = 1000;
constexpr int kFrames = 15;
constexpr double kPersistence = 0.9;

/// What a frame shows, and how a model comes to show it.
struct Scene {
  const char* name;
  QSize size;
  std::function<void(LatticeModel&)> prepare;
};

void fill(LatticeModel& model, int types) {
  fillLattice(model, types, kSites, kSites, scatteredTypes(types));
}

void fillTraces(LatticeModel& model, int types) {
  fill(model, types);
  for (int type = 0; type < types; ++type)
    for (int i = 0; i < kSites; ++i)
      for (int j = 0; j < kSites; ++j) model.varMobileHistory[type][i][j] = 0.5;
}

void runWithPersistence(LatticeModel& model) {
  for (int type = 0; type < model.getNumPixelTypes(); ++type) model.setPixelPersistence(type, kPersistence);
  model.runSweeps(kSweeps);
}

void separate(LatticeModel& model) {
  if (openDocument(model, PHASE_SEPARATION).status != OpenStatus::kOpened) std::abort();
  runWithPersistence(model);
}

/// Ten types that trade places and repel each other.
void mix(LatticeModel& model) {
  fill(model, kMaxPixelTypes);
  model.makeNewRule("mix", kSwap, kAnyPixelType, kAnyPixelType);
  model.setRuleParam(0, 1.0);
  for (int a = 0; a < kMaxPixelTypes; ++a)
    for (int b = 0; b < a; ++b) model.setPixelIntConstant(a, b, 1.1);
  runWithPersistence(model);
}

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
double timeOf(const Scene& scene, const ModelState& shown) {
  auto view = shownView<View>(scene.size.width(), scene.size.height());
  copyPicture(shown, *view);
  return fastestMilliseconds(*view);
}

void timeFrames(const Scene& scene) {
  const auto model = std::make_unique<LatticeModel>();
  scene.prepare(*model);
  const double literal = timeOf<LiteralView>(scene, *model);
  const double drawn = timeOf<GraphicalLatticeModelGL>(scene, *model);
  std::printf("%4d x %4d points  %-44s every rectangle %7.1f ms   those seen %7.1f ms\n", scene.size.width(),
              scene.size.height(), scene.name, literal, drawn);
}

}  // namespace
}  // namespace quorvane

int main(int argc, char** argv) {
  using namespace quorvane;
  qputenv("LIBGL_ALWAYS_SOFTWARE", "1");
  QSurfaceFormat::setDefaultFormat(GraphicalLatticeModelGL::surfaceFormat());
  const QApplication application(argc, argv);
  const QSize small(444, 444), large(1600, 1200);
  const auto types = [](auto prepare, int count) {
    return [prepare, count](LatticeModel& model) { prepare(model, count); };
  };
  for (const Scene& scene : {Scene{"2 types, no persistence", small, types(fill, 2)},
                             {"2 types, every trace 0.5", small, types(fillTraces, 2)},
                             {"phase-separation, persistence 0.9", small, separate},
                             {"10 types, no persistence", small, types(fill, 10)},
                             {"10 types, every trace 0.5", small, types(fillTraces, 10)},
                             {"mixture of 10 types, persistence 0.9", small, mix},
                             {"10 types, no persistence", large, types(fill, 10)}})
    timeFrames(scene);
}
