// Sites that can change only next to a mobile neighbour.

#include "Designs.h"
#include "Palette.h"
#include "Shapes.h"

namespace quorvane {

/// Facilitated flips: mobility spreads from one spot through the doors of a walled house.
SystemBuilder designFacilitatedFlips() {
  constexpr int frozen = 0, mobile = 1, wall = 2;
  SystemBuilder system(3);
  system.type(frozen, "Frozen", palette::kNight);
  system.type(mobile, "Mobile", {0.65, 1.0, 0.92}, 0.96);
  system.type(wall, "Wall", palette::kStone);
  system.immobile(wall);
  system.model().setPixelField(mobile, 2.4);
  const int flip = system.flipBothWays("Mobile wakes frozen", frozen, mobile, 1.0);
  system.needs(flip, 1, mobile);
  system.fill([](int i, int j) {
    const bool outer = i % 32 < 2 || j % 26 < 2;
    const bool door = std::abs(i % 32 - 17) < 3 || std::abs(j % 26 - 14) < 3;
    if (outer && !door) return wall;
    return distance(i, j, 49, 40) < 7 ? mobile : frozen;
  });
  return system;
}

/// The model in equilibrium from the start: each site is mobile independently with probability 1 / (1 +
/// exp(field)). Sites that have been mobile freeze to a separate type, which changes only the picture.
SystemBuilder designFredricksonAndersen() {
  constexpr int untouched = 0, frozen = 1, mobile = 2;
  constexpr double field = 3.0;
  SystemBuilder system(3);
  system.type(untouched, "Frozen since the start", palette::kNight);
  system.type(frozen, "Frozen again", palette::kBlue);
  system.type(mobile, "Mobile", palette::kYellow, 0.9);
  system.model().setPixelField(mobile, field);
  system.needs(system.flip("First move", untouched, mobile, 1.0), 2, mobile);
  system.needs(system.flipBothWays("Later moves", frozen, mobile, 1.0), 2, mobile);
  Chance chance;
  const double concentration = 1.0 / (1.0 + std::exp(field));
  system.fill([&](int, int) { return chance.happens(concentration) ? mobile : untouched; });
  return system;
}

}  // namespace quorvane
