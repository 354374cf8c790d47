// Writes the example documents into the folder named on the command line; every run writes the same bytes.

#include <filesystem>
#include <iostream>
#include <string>

#include "Designs.h"
#include "document/ModelDocument.h"
#include "engine/f_ran0.h"

namespace quorvane {
namespace {

struct Example {
  const char* name;
  SystemBuilder (*design)();
};

constexpr Example kExamples[] = {
    {"adsorption", designAdsorption},
    {"contact-process", designContactProcess},
    {"eden-growth", designEdenGrowth},
    {"epidemic", designEpidemic},
    {"facilitated-flips", designFacilitatedFlips},
    {"forest-fire", designForestFire},
    {"fredrickson-andersen", designFredricksonAndersen},
    {"gas-through-a-hole", designGasThroughAHole},
    {"grain-growth", designGrainGrowth},
    {"growth-from-a-seed", designGrowthFromASeed},
    {"ising-above-critical", designIsingAbove},
    {"ising-at-critical", designIsingCritical},
    {"ising-below-critical", designIsingBelow},
    {"nucleation", designNucleation},
    {"phase-separation", designPhaseSeparation},
    {"predators-and-prey", designPredatorsAndPrey},
    {"reaction-a-plus-b", designReaction},
    {"rock-paper-scissors", designRockPaperScissors},
    {"silent-carriers", designSilentCarriers},
    {"three-phases", designThreePhases},
    {"voters", designVoters},
};

bool save(const Example& example, const std::filesystem::path& folder) {
  const std::filesystem::path path = folder / (std::string(example.name) + ".quorvane");
  const SaveResult result = saveDocument(example.design().model(), path);
  if (!result.saved) std::cerr << path.string() << ": " << result.reason << '\n';
  return result.saved;
}

}  // namespace
}  // namespace quorvane

int main(int argc, char** argv) {
  quorvane::processRandomSource.lookAtPlatform();
  if (argc != 2) {
    std::cerr << "usage: make_examples FOLDER\n";
    return 2;
  }
  for (const quorvane::Example& example : quorvane::kExamples)
    if (!quorvane::save(example, argv[1])) return 1;
  return 0;
}
