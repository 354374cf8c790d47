#pragma once

#include <array>
#include <string>

#include "model/LatticeModel.h"
#include "settings/Names.h"

/// Changes of one value of a rule or a pixel type, as the window's controls make them and within their
/// ranges.
///
/// They draw nothing. Each throws SettingError if the value does not fit, and then nothing has changed.
/// Indices of rules and pixel types are those of existing ones. Main thread only.
namespace quorvane {

/// A probability, 0 to 1, or the energy of a pixel-pixel interaction, -10 to 10, which is written into the
/// pairs that the rule covers.
void setParameter(LatticeModel& model, int rule, double value);
/// Disabling a pixel-pixel interaction moves its pair energies away, enabling it moves them back.
void setDisabled(LatticeModel& model, int rule, bool disabled);
/// The neighbours that a flip needs, 0 to 8.
void setFacilitation(LatticeModel& model, int rule, int neighbours);
/// The type that the neighbours must have, or kAnyPixelType.
void setFacilitatingType(LatticeModel& model, int rule, int type);

/// The energy of a site for holding the type, -10 to 10.
void setField(LatticeModel& model, int type, double energy);
/// The fraction of the trace that remains after a sweep, 0 to 1.
void setPersistence(LatticeModel& model, int type, double fraction);
/// 0, not drawn, to 1.
void setOpacity(LatticeModel& model, int type, double opacity);
/// Red, green and blue, 0 to 1.
void setColor(LatticeModel& model, int type, const std::array<double, 3>& color);
/// Another type that it counts as, or kNoMasquerade.
void setMasquerade(LatticeModel& model, int type, int asType);

/// The checks of setParameter and setFacilitation for a kind of rule, a RuleType.
void requireParameter(int kind, double value);
void requireFacilitation(int kind, int neighbours);

/// Throws unless a document can hold the text as a name: printable ASCII, at most kMaxNameLength characters.
void requireName(const std::string& name);
/// Throws unless it is the index of a pixel type, or -1, which stands for any or none.
void requireTypeOrNone(const LatticeModel& model, int type);

}  // namespace quorvane
