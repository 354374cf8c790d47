#include <cassert>

#include "engine/f_LMlattice.h"
#include "engine/f_ran0.h"
#include "model/LatticeModel.h"

namespace quorvane {
namespace {

/// Allocated first, so that a lack of memory does not leave the model half initialised.
const SharedName kPixel("Pixel"), kNewPixel("New Pixel");

void setDefaults(ModelState& model, int type, const SharedName& name) {
  model.varSiteName[type] = name;
  model.varHistoryPersistenceConst[type] = 0.0;
  model.varSiteAlpha[type] = 1.0;
  model.varPixelImmobile[type] = 0;
  model.varSiteMasqueradeAs[type] = kNoMasquerade;
  model.varSiteField[type] = 0.0;
}

void drawColor(ModelState& model, int type) {
  for (auto& component : model.varSiteColor[type]) component = fRandReal();
}

void setBlack(ModelState& model, int type) {
  for (auto& component : model.varSiteColor[type]) component = 0.0;
}

void clearPairEnergies(ModelState& model) {
  for (auto& row : model.varInteractionConstants)
    for (auto& energy : row) energy = 0.0;
}

}  // namespace

void LatticeModel::awakeFromNib() {
  varMyState = kNotInitialised;
  varPainting = 0;
  varInFullScreen = 0;
  varImax = 0;
  varJmax = 0;
  varPaintbrushColor = 0;
  varNumSiteTypes = 1;
  varNumRules = 0;
  requestRedraw();
}

void LatticeModel::initializeLatticeModel(int numTypes, int imax, int jmax) {
  const bool keepSystem = numTypes == -1;
  assert(keepSystem || (numTypes >= 1 && numTypes <= kMaxPixelTypes));
  assert(imax >= 1 && imax <= kMaxSide && jmax >= 1 && jmax <= kMaxSide);
  varImax = imax;
  varJmax = jmax;
  if (!keepSystem) {
    varNumSiteTypes = numTypes;
    varNumRules = 0;
  }
  fModelInit(varNumSiteTypes, varImax, varJmax, varSiteValues);
  if (!keepSystem) clearPairEnergies(*this);
  for (int type = 0; type < varNumSiteTypes; ++type) {
    if (!keepSystem) {
      if (type == 0)
        setBlack(*this, type);
      else
        drawColor(*this, type);
      setDefaults(*this, type, kPixel);
    }
    reinitHistory(type);
  }
  varMyState = kStopped;
  latticeReplaced();
  requestRedraw();
}

void LatticeModel::reinitHistory(int type) {
  const int imax = varImax, jmax = varJmax;
  for (int i = 0; i < imax; ++i)
    for (int j = 0; j < jmax; ++j) varMobileHistory[type][i][j] = varSiteValues[i][j] == type ? 1.0 : 0.0;
  varMobileHistoryMax[type] = 1.0;
}

void LatticeModel::addPixelType() {
  const int type = varNumSiteTypes;
  assert(type < kMaxPixelTypes);
  drawColor(*this, type);
  setDefaults(*this, type, kNewPixel);
  reinitHistory(type);
  varNumSiteTypes = type + 1;
}

}  // namespace quorvane
