#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "model/LatticeModel.h"
#include "settings/Fill.h"
#include "settings/Setting.h"

/// How a run starts: what precedes the opening of its document, and what is changed before the first sweep.
namespace quorvane {

/// The sites along both sides of a lattice, each 1 to kMaxSide.
struct LatticeSides {
  int imax, jmax;
  bool operator==(const LatticeSides&) const = default;
};

/// In the order in which it takes effect.
struct Start {
  std::optional<int> seed;  ///< of the random source, before the document is opened; 1 to 2^31 - 1
  std::vector<Setting> settings;
  std::optional<LatticeSides> remake;
  std::vector<Share> fill;  ///< empty if the sites stay
};

/// The values of the options as they are typed.
struct StartWords {
  std::optional<int> seed;
  std::vector<std::string> settings;
  std::optional<std::string> remake, fill;
};

/// Throws SettingError, whose line begins with the option.
Start startFrom(const StartWords& words);

/// Changes an opened document. Draws: for remake those of initializeLatticeModel with -1, then for fill one
/// for each site. Throws SettingError, whose line begins with the option.
void changeBeforeRun(LatticeModel& model, const Start& start);

}  // namespace quorvane
