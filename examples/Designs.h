#pragma once

#include "SystemBuilder.h"

/// One function for each document; docs/examples.md describes them.
namespace quorvane {

// Magnets.cpp
SystemBuilder designIsingBelow();
SystemBuilder designIsingCritical();
SystemBuilder designIsingAbove();
SystemBuilder designNucleation();
SystemBuilder designGrainGrowth();

// Mixtures.cpp
SystemBuilder designPhaseSeparation();
SystemBuilder designThreePhases();
SystemBuilder designGasThroughAHole();

// Mobility.cpp
SystemBuilder designFacilitatedFlips();
SystemBuilder designFredricksonAndersen();

// Growth.cpp
SystemBuilder designEdenGrowth();
SystemBuilder designGrowthFromASeed();
SystemBuilder designAdsorption();

// Spreading.cpp
SystemBuilder designContactProcess();
SystemBuilder designEpidemic();
SystemBuilder designSilentCarriers();
SystemBuilder designForestFire();

// Species.cpp
SystemBuilder designVoters();
SystemBuilder designPredatorsAndPrey();
SystemBuilder designRockPaperScissors();
SystemBuilder designReaction();

}  // namespace quorvane
