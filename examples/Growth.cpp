// Deposits that stay where they are.

#include "Designs.h"
#include "Palette.h"
#include "Shapes.h"

namespace quorvane {

/// A colony that takes empty sites at its edge. The older its cells, the brighter they are.
SystemBuilder designEdenGrowth() {
  constexpr int medium = 0, cell = 1, fresh = 2;
  SystemBuilder system(3, 256, 208);
  system.type(medium, "Medium", palette::kNight);
  system.type(cell, "Old cell", palette::kGreen, 0.99);
  system.type(fresh, "Fresh cell", palette::kYellow);
  system.model().setPixelMasqueradeAs(fresh, cell);
  system.flipForEachNeighbour("A cell divides", medium, fresh, 0.3, cell);
  system.flip("A fresh cell ages", fresh, cell, 0.2);
  system.fill([](int i, int j) { return distance(i, j, 128, 104) < 2 ? cell : medium; });
  return system;
}

/// Particles that diffuse through a medium and freeze where they touch the cluster grown from one seed.
SystemBuilder designGrowthFromASeed() {
  constexpr int medium = 0, wanderer = 1, tip = 2, crystal = 3;
  SystemBuilder system(4);
  system.type(medium, "Medium", {0.02, 0.03, 0.09});
  system.type(wanderer, "Wanderer", {0.20, 0.42, 0.62}, 0.6);
  system.type(tip, "Fresh crystal", palette::kCream, 0.9);
  system.type(crystal, "Crystal", {0.85, 0.30, 0.42});
  system.immobile(tip);
  system.immobile(crystal);
  system.model().setPixelMasqueradeAs(crystal, tip);
  system.swap("Wanderer moves", wanderer, medium, 1.0);
  const int freeze = system.flip("Wanderer freezes at the crystal", wanderer, tip, 1.0);
  system.needs(freeze, 1, tip);
  system.flip("Fresh crystal ages", tip, crystal, 0.03);
  Chance chance;
  system.fill([&](int i, int j) {
    const bool occupied = chance.oneIn(6);
    const double fromSeed = distance(i, j, 64, 52);
    if (fromSeed < 0.5) return tip;
    return occupied && fromSeed > 2 ? wanderer : medium;
  });
  return system;
}

/// Particles that land on a bare site whose eight neighbours are free, and stay.
SystemBuilder designAdsorption() {
  constexpr int bare = 0, shaded = 1, particle = 2;
  SystemBuilder system(3);
  system.type(bare, "Bare surface", palette::kSkyBlue);
  system.type(shaded, "Shaded surface", palette::kNavy);
  system.type(particle, "Particle", palette::kYellow);
  system.model().setPixelMasqueradeAs(shaded, bare);
  const int land = system.flip("A particle lands where all is free", bare, particle, 0.005);
  system.needs(land, 8, bare);
  const int shade = system.flip("A particle shades its neighbours", bare, shaded, 1.0);
  system.needs(shade, 1, particle);
  system.fill([](int, int) { return bare; });
  return system;
}

}  // namespace quorvane
