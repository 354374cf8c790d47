#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "settings/Names.h"

namespace quorvane {

/// The share of a pixel type in a random lattice.
struct Share {
  std::string type;  ///< as typeNamed takes it
  double share;      ///< 0 to 1
};

/// Reads shares such as "Solvent=0.9,#1=0.1", which add up to 1 within 1e-9. A name ends at the last "=" of
/// its entry and contains no comma. Throws SettingError.
std::vector<Share> sharesIn(std::string_view text);

/// Throws SettingError unless every share is from 0 to 1 and they add up to 1 within 1e-9.
void requireShares(const std::vector<Share>& shares);

/// Gives every site a type at random and resets all traces. Draws: one fRandReal for each site, i outer and j
/// inner; the type is the first whose share, added to those before it, exceeds the draw. Throws SettingError
/// for a type that does not exist or has two shares, and then nothing has changed.
void fill(LatticeModel& model, const std::vector<Share>& shares);

}  // namespace quorvane
