#pragma once

#include <gtest/gtest.h>

#include <QColor>
#include <QImage>
#include <functional>
#include <limits>
#include <memory>

#include "GuiSupport.h"
#include "view/GraphicalLatticeModelGL.h"

namespace quorvane {

/// Without a wait behind a sweep.
inline constexpr int kFastest = std::numeric_limits<int>::max();
/// Counts to more than an int can hold: only a stop or another speed ends the wait.
inline constexpr int kEndlessWait = 4;

using SiteType = std::function<int(int i, int j)>;

/// Black, red, green, blue, white and five mixtures.
QColor paletteColor(int type);

/// Gives the view a lattice with the palette's colours, the given site values and matching traces.
void fillLattice(LatticeModel& model, int numTypes, int imax, int jmax, const SiteType& typeOf);

/// A pseudo-random type below numTypes for every site, the same in every run.
SiteType scatteredTypes(int numTypes);

/// Random colours, opacities and traces, many of them 0; the same for the same seed.
void scatterTraces(LatticeModel& model, unsigned seed);

/// Copies everything that is drawn.
void copyPicture(const ModelState& from, ModelState& to);

/// A view that is a top-level window, shown at a size in points.
template <class View = GraphicalLatticeModelGL>
std::unique_ptr<View> shownView(int width, int height) {
  auto view = std::make_unique<View>();
  view->resize(width, height);
  EXPECT_TRUE(gui::showAndActivate(*view));
  EXPECT_TRUE(gui::waitUntil([&] { return view->size() == QSize(width, height); }));
  return view;
}

/// The colour of a pixel, counted from the left and from the bottom.
QColor colorAt(const QImage& frame, int x, int y);

/// The expected frame of opaque sites: for each pixel, the colour of the last rectangle that covers its
/// centre.
QImage opaqueFrame(const LatticeModel& model, int width, int height);

}  // namespace quorvane
