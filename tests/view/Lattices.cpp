#include "Lattices.h"

#include <algorithm>
#include <array>
#include <random>

namespace quorvane {
namespace {

/// The index of the site whose rectangle is the last along one axis to cover a coordinate; -1 if none.
int coveringSite(double coordinate, double spacing, int sites) {
  const bool gaps = spacing > 8.0;
  int covering = -1;
  for (int k = 0; k * spacing <= coordinate; ++k) {
    const double start = gaps ? k * spacing + 2.0 : k * spacing;
    const double end = gaps ? (k + 1) * spacing : (k + 1) * spacing + 1.0;
    if (start <= coordinate && coordinate < end) covering = k % sites;
  }
  return covering;
}

}  // namespace

QColor paletteColor(int type) {
  static const std::array<QColor, kMaxPixelTypes> colors{
      QColor(0, 0, 0),   QColor(255, 0, 0),  QColor(0, 255, 0),  QColor(0, 0, 255),  QColor(255, 255, 255),
      QColor(51, 0, 51), QColor(0, 102, 51), QColor(153, 51, 0), QColor(204, 51, 0), QColor(51, 153, 255)};
  return colors.at(static_cast<std::size_t>(type));
}

void fillLattice(LatticeModel& model, int numTypes, int imax, int jmax, const SiteType& typeOf) {
  model.initializeLatticeModel(numTypes, imax, jmax);
  for (int i = 0; i < imax; ++i)
    for (int j = 0; j < jmax; ++j) model.setSiteValue(i, j, typeOf(i, j));
  for (int type = 0; type < numTypes; ++type) {
    const QColor color = paletteColor(type);
    model.setPixelColor(type, color.redF(), color.greenF(), color.blueF());
    model.reinitHistory(type);
  }
}

SiteType scatteredTypes(int numTypes) {
  return [numTypes](int i, int j) { return (i * 7 + j * 5 + i * j * 3) % numTypes; };
}

void scatterTraces(LatticeModel& model, unsigned seed) {
  std::mt19937 random(seed);
  std::uniform_real_distribution<double> share(0.0, 1.0);
  const auto oftenZero = [&] { return share(random) < 0.4 ? 0.0 : share(random); };
  for (int type = 0; type < model.varNumSiteTypes; ++type) {
    model.setPixelColor(type, share(random), share(random), share(random));
    model.setPixelAlpha(type, oftenZero());
    model.varMobileHistoryMax[type] = 1.0 + share(random);
    for (int i = 0; i < model.varImax; ++i)
      for (int j = 0; j < model.varJmax; ++j) model.varMobileHistory[type][i][j] = oftenZero();
  }
}

void copyPicture(const ModelState& from, ModelState& to) {
  to.varMyState = from.varMyState;
  to.varImax = from.varImax;
  to.varJmax = from.varJmax;
  to.varNumSiteTypes = from.varNumSiteTypes;
  for (int type = 0; type < from.varNumSiteTypes; ++type) {
    std::ranges::copy(from.varSiteColor[type], to.varSiteColor[type]);
    to.varSiteAlpha[type] = from.varSiteAlpha[type];
    to.varMobileHistoryMax[type] = from.varMobileHistoryMax[type];
    for (int i = 0; i < from.varImax; ++i)
      std::ranges::copy(from.varMobileHistory[type][i], to.varMobileHistory[type][i]);
  }
}

QColor colorAt(const QImage& frame, int x, int y) { return frame.pixelColor(x, frame.height() - 1 - y); }

QImage opaqueFrame(const LatticeModel& model, int width, int height) {
  const double spacing = double(width) / model.varImax;
  QImage frame(width, height, QImage::Format_RGB32);
  frame.fill(Qt::black);
  for (int x = 0; x < width; ++x)
    for (int y = 0; y < height; ++y) {
      const int i = coveringSite(x + 0.5, spacing, model.varImax);
      const int j = coveringSite(y + 0.5, spacing, model.varJmax);
      if (i >= 0 && j >= 0) frame.setPixelColor(x, height - 1 - y, paletteColor(model.getSiteValue(i, j)));
    }
  return frame;
}

}  // namespace quorvane
