// Species that take sites from each other.

#include "Designs.h"
#include "Palette.h"
#include "Shapes.h"

namespace quorvane {

/// A disc of one opinion in another; each site adopts the opinion of a random neighbour.
SystemBuilder designVoters() {
  constexpr int blue = 0, yellow = 1;
  SystemBuilder system(2);
  system.type(blue, "Blue voter", palette::kBlue);
  system.type(yellow, "Yellow voter", palette::kYellow);
  system.flipForEachNeighbour("Blue follows a yellow", blue, yellow, 1.0, yellow);
  system.flipForEachNeighbour("Yellow follows a blue", yellow, blue, 1.0, blue);
  system.fill([](int i, int j) { return distance(i, j, 64, 52) < 40 ? yellow : blue; });
  return system;
}

/// A meadow of prey with one pack of predators.
SystemBuilder designPredatorsAndPrey() {
  constexpr int ground = 0, prey = 1, predator = 2;
  SystemBuilder system(3);
  system.type(ground, "Bare ground", palette::kNight);
  system.type(prey, "Prey", palette::kGreen);
  system.type(predator, "Predator", palette::kOrange, 0.8);
  system.flipForEachNeighbour("Prey breeds", ground, prey, 0.06, prey);
  system.flipForEachNeighbour("Prey is eaten", prey, predator, 0.5, predator);
  system.flip("Predators starve", predator, ground, 0.05);
  system.fill([](int i, int j) {
    if (distance(i, j, 76, 52) < 5) return predator;
    return distance(i, j, 64, 52) < 40 ? prey : ground;
  });
  return system;
}

/// Three species, each beaten by the next, from a random start.
SystemBuilder designRockPaperScissors() {
  constexpr int rock = 0, paper = 1, scissors = 2;
  SystemBuilder system(3, 256, 208);
  system.type(rock, "Rock", palette::kBlue);
  system.type(paper, "Paper", palette::kCream);
  system.type(scissors, "Scissors", palette::kVermilion);
  system.needs(system.flip("Paper wraps rock", rock, paper, 0.5), 3, paper);
  system.needs(system.flip("Scissors cut paper", paper, scissors, 0.5), 3, scissors);
  system.needs(system.flip("Rock blunts scissors", scissors, rock, 0.5), 3, rock);
  Chance chance;
  system.fill([&](int, int) { return chance.below(3); });
  return system;
}

/// A dense disc of B in a thinner gas of A.
SystemBuilder designReaction() {
  constexpr int solvent = 0, speciesA = 1, speciesB = 2, product = 3;
  SystemBuilder system(4);
  system.type(solvent, "Solvent", palette::kNight);
  system.type(speciesA, "Species A", palette::kBlue, 0.5);
  system.type(speciesB, "Species B", palette::kOrange, 0.5);
  system.type(product, "Product", palette::kCream, 0.5);
  system.swap("A moves", speciesA, solvent, 1.0);
  system.needs(system.flip("A reacts where it meets B", speciesA, product, 1.0), 1, speciesB);
  system.swap("B moves", speciesB, solvent, 1.0);
  system.needs(system.flip("B reacts where it meets A", speciesB, product, 1.0), 1, speciesA);
  system.flip("Product dissolves", product, solvent, 0.01);
  Chance chance;
  system.fill([&](int i, int j) {
    const bool inDisc = distance(i, j, 64, 52) < 34;
    if (!chance.happens(inDisc ? 0.5 : 0.25)) return solvent;
    return inDisc ? speciesB : speciesA;
  });
  return system;
}

}  // namespace quorvane
