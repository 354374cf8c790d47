#pragma once

#include <string>
#include <string_view>

#include "settings/Names.h"

namespace quorvane {

/// A change of one value of a rule or a pixel type: "rule Growth parameter=0.3", "rule #2 disabled=1",
/// "rule Growth facilitation=3", "type Solvent field=-0.5", "type #0 immobile=1". The name is all between the
/// first word and the last.
struct Setting {
  enum { kRule, kType } of = kRule;
  std::string name, field, value;

  bool operator==(const Setting&) const = default;
};

/// Reads a setting; whether the name exists and the value fits is seen when it is applied. Throws
/// SettingError.
Setting settingIn(std::string_view text);

/// Makes the change as the window's control does, within the control's range: a probability 0 to 1, an energy
/// -10 to 10, a facilitation 0 to 8 neighbours, a flag 0 or 1. The parameter of a pixel-pixel interaction
/// writes its pair energies, and disabling one moves them away. Draws nothing. Throws SettingError, and then
/// nothing has changed.
void apply(const Setting& setting, LatticeModel& model);

}  // namespace quorvane
