// Models whose sites have two or more states that flip and favour like neighbours.

#include "Designs.h"
#include "Palette.h"
#include "Shapes.h"

namespace quorvane {
namespace {

constexpr int kDown = 0, kUp = 1;

/// Two states that repel each other. A flip counts each bond at half its constant, so a constant e gives the
/// coupling K = e / 4 of the Ising model.
SystemBuilder magnet(double unlikeEnergy, int across, int upwards) {
  SystemBuilder system(2, across, upwards);
  system.type(kDown, "Spin down", palette::kNavy);
  system.type(kUp, "Spin up", palette::kYellow);
  system.flipBothWays("Spins flip", kDown, kUp, 1.0);
  system.pairEnergy("Unlike spins repel", kDown, kUp, unlikeEnergy);
  return system;
}

/// Disorder on the left, order on the right: the start for all couplings.
SystemBuilder ising(double coupling) {
  SystemBuilder system = magnet(4.0 * coupling, 256, 208);
  Chance chance;
  system.fill([&](int i, int j) {
    if (i < 128) return chance.below(2);
    return distance(i, j, 192, 104) < 48 ? kUp : kDown;
  });
  return system;
}

/// Luijten, Bloete and Bakker, Phys. Rev. E 54, 4626, 1996: eight equal neighbours.
constexpr double kCriticalCoupling = 0.1901926807;

}  // namespace

SystemBuilder designIsingBelow() { return ising(0.15); }
SystemBuilder designIsingCritical() { return ising(kCriticalCoupling); }
SystemBuilder designIsingAbove() { return ising(0.25); }

/// Droplets of the favoured state, from smaller to larger than the critical one, in the other state.
SystemBuilder designNucleation() {
  SystemBuilder system = magnet(1.2, 128, 104);
  system.model().setPixelField(kUp, -0.15);
  system.fill([](int i, int j) {
    for (int column = 0; column < 4; ++column)
      for (int row = 0; row < 3; ++row)
        if (distance(i, j, 16 + 32 * column, 17 + 35 * row) < 1.5 + column + 4 * row) return kUp;
    return kDown;
  });
  return system;
}

/// Ten orientations of a crystal's grains in a random start.
SystemBuilder designGrainGrowth() {
  constexpr int orientations = 10;
  SystemBuilder system(orientations);
  constexpr Color colors[orientations] = {
      {0.05, 0.16, 0.34}, palette::kOrange,  palette::kSkyBlue, palette::kGreen,    palette::kYellow,
      palette::kBlue,     {0.60, 0.25, 0.0}, palette::kPurple,  {0.45, 0.16, 0.36}, palette::kCream};
  for (int t = 0; t < orientations; ++t) {
    const std::string number = std::to_string(t);
    system.type(t, ("Orientation " + number).c_str(), colors[t]);
  }
  system.flipBothWays("A site turns", kAnyPixelType, kAnyPixelType, 1.0);
  for (int t = 0; t < orientations; ++t)
    system.pairEnergy("Orientation " + std::to_string(t) + " holds together", t, t, -2.0);
  Chance chance;
  system.fill([&](int, int) { return chance.below(orientations); });
  return system;
}

}  // namespace quorvane
