// States that spread between neighbours and may die out.

#include "Designs.h"
#include "Palette.h"
#include "Shapes.h"

namespace quorvane {

/// Slightly above the threshold: the full left half thins out, the empty right half is invaded.
SystemBuilder designContactProcess() {
  constexpr int empty = 0, active = 1;
  SystemBuilder system(2, 256, 208);
  system.type(empty, "Empty", palette::kNight);
  system.type(active, "Active", palette::kOrange, 0.9);
  system.flipForEachNeighbour("Birth", empty, active, 0.725, active);
  system.flip("Death", active, empty, 0.5);
  system.fill([](int i, int) { return i < 128 ? active : empty; });
  return system;
}

/// Ever more vaccinated people from left to right; the disease comes in from the left.
SystemBuilder designEpidemic() {
  constexpr int healthy = 0, sick = 1, immune = 2, vaccinated = 3;
  SystemBuilder system(4, 256, 208);
  system.type(healthy, "Healthy", palette::kNavy);
  system.type(sick, "Sick", palette::kOrange, 0.8);
  system.type(immune, "Immune", palette::kSkyBlue);
  system.type(vaccinated, "Vaccinated", {0.75, 0.75, 0.75});
  const int infect = system.flip("A sick neighbour infects", healthy, sick, 0.3);
  system.needs(infect, 1, sick);
  system.flip("The sick recover", sick, immune, 0.15);
  system.flip("Immunity wanes", immune, healthy, 0.01);
  Chance chance;
  system.fill([&](int i, int) {
    if (i < 2) return sick;
    return chance.happens(0.8 * i / 256) ? vaccinated : healthy;
  });
  return system;
}

/// Two towns that differ only in one flag: in the left one the carriers masquerade as sick.
SystemBuilder designSilentCarriers() {
  constexpr int healthy = 0, sick = 1, immune = 2, silent = 3, isolated = 4, wall = 5;
  SystemBuilder system(6);
  system.type(healthy, "Healthy", palette::kNavy);
  system.type(sick, "Sick", palette::kOrange, 0.8);
  system.type(immune, "Immune", palette::kSkyBlue);
  system.type(silent, "Silent carrier", palette::kPurple);
  system.type(isolated, "Isolated carrier", {0.9, 0.9, 0.9});
  system.type(wall, "Wall", palette::kStone);
  system.immobile(wall);
  system.model().setPixelMasqueradeAs(silent, sick);
  const int infect = system.flip("A sick neighbour infects", healthy, sick, 0.3);
  system.needs(infect, 1, sick);
  system.flip("The sick recover", sick, immune, 0.2);
  system.flip("Immunity wanes", immune, healthy, 0.005);
  Chance chance;
  system.fill([&](int i, int j) {
    if (i % 64 < 2 || j < 2) return wall;
    if (distance(i % 64, j, 33, 53) < 3) return sick;
    if (chance.oneIn(800)) return i < 64 ? silent : isolated;
    return healthy;
  });
  return system;
}

/// Trees that grow slowly, fires that start rarely.
SystemBuilder designForestFire() {
  constexpr int ash = 0, tree = 1, fire = 2;
  SystemBuilder system(3, 256, 208);
  system.type(ash, "Ash", palette::kAsh);
  system.type(tree, "Tree", palette::kGreen);
  system.type(fire, "Fire", palette::kYellow, 0.4);
  const int spread = system.flip("Fire spreads", tree, fire, 1.0);
  system.needs(spread, 1, fire);
  system.flip("Lightning", tree, fire, 0.00001);
  system.flip("Fire burns out", fire, ash, 0.5);
  system.flip("A tree grows", ash, tree, 0.002);
  Chance chance;
  system.fill([&](int, int) { return chance.happens(0.35) ? tree : ash; });
  return system;
}

}  // namespace quorvane
