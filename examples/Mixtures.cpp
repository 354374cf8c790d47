// Conserved particles that trade places.

#include "Designs.h"
#include "Palette.h"
#include "Shapes.h"

namespace quorvane {

/// Ever wider stripes over a square and a ring: narrow stripes break into droplets, wide ones hold, corners
/// round.
SystemBuilder designPhaseSeparation() {
  constexpr int water = 0, oil = 1;
  SystemBuilder system(2);
  system.type(water, "Water", palette::kNavy);
  system.type(oil, "Oil", {0.98, 0.72, 0.22}, 0.5);
  system.swap("Oil and water trade places", oil, water, 1.0);
  system.pairEnergy("Oil and water repel", oil, water, 1.1);
  system.fill([](int i, int j) {
    struct Stripe {
      int from, width;
    };
    constexpr Stripe stripes[] = {{8, 1}, {16, 2}, {26, 3}, {38, 4}, {52, 6}, {70, 8}, {92, 12}};
    if (j >= 48) {
      for (const auto [from, width] : stripes)
        if (j < 100 && i >= from && i < from + width) return oil;
      return water;
    }
    const bool inSquare = i >= 12 && i < 44 && j >= 8 && j < 40;
    const double fromRing = distance(i, j, 88, 24);
    const bool inRing = fromRing > 12 && fromRing < 18;
    return inSquare || inRing ? oil : water;
  });
  return system;
}

/// A well-stirred mixture of two oils in water. The oils repel each other less than either repels water.
SystemBuilder designThreePhases() {
  constexpr int water = 0, oil = 1, resin = 2;
  SystemBuilder system(3);
  system.type(water, "Water", palette::kNavy);
  system.type(oil, "Oil", palette::kYellow);
  system.type(resin, "Resin", palette::kVermilion);
  system.swap("Oil and water trade places", oil, water, 1.0);
  system.swap("Resin and water trade places", resin, water, 1.0);
  system.swap("Oil and resin trade places", oil, resin, 1.0);
  system.pairEnergy("Oil and water repel", oil, water, 1.4);
  system.pairEnergy("Resin and water repel", resin, water, 1.4);
  system.pairEnergy("Oil and resin repel", oil, resin, 1.2);
  Chance chance;
  system.fill([&](int, int) {
    if (chance.happens(0.6)) return water;
    return chance.oneIn(2) ? oil : resin;
  });
  return system;
}

/// Two gases in the left of two boxes, with a hole in the wall between them.
SystemBuilder designGasThroughAHole() {
  constexpr int vacuum = 0, light = 1, heavy = 2, wall = 3;
  SystemBuilder system(4, 48, 39);
  system.type(vacuum, "Vacuum", palette::kNight);
  system.type(light, "Light gas", palette::kSkyBlue, 0.6);
  system.type(heavy, "Heavy gas", palette::kVermilion, 0.6);
  system.type(wall, "Wall", palette::kStone);
  system.immobile(wall);
  system.swap("Light gas moves", light, vacuum, 1.0);
  system.swap("Heavy gas moves", heavy, vacuum, 0.25);
  Chance chance;
  system.fill([&](int i, int j) {
    const bool hole = i > 0 && std::abs(j - 20) < 5;
    if (i == 0 || j == 0 || (i == 24 && !hole)) return wall;
    if (i >= 24 || !chance.happens(0.35)) return vacuum;
    return chance.oneIn(2) ? light : heavy;
  });
  return system;
}

}  // namespace quorvane
