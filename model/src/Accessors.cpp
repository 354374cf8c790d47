#include <utility>

#include "model/LatticeModel.h"

namespace quorvane {

int LatticeModel::getIMax() const { return varImax; }
int LatticeModel::getJMax() const { return varJmax; }
int LatticeModel::getSiteValue(int i, int j) const { return varSiteValues[i][j]; }
void LatticeModel::setSiteValue(int i, int j, int type) { varSiteValues[i][j] = type; }
double LatticeModel::getWidth() const { return varMyWidth; }
double LatticeModel::getHeight() const { return varMyHeight; }
int LatticeModel::getNumPixelTypes() const { return varNumSiteTypes; }

const std::string& LatticeModel::getPixelName(int t) const { return varSiteName[t].text(); }
void LatticeModel::setPixelName(int t, SharedName name) { varSiteName[t] = std::move(name); }
double LatticeModel::getPixelColorR(int t) const { return varSiteColor[t][0]; }
double LatticeModel::getPixelColorG(int t) const { return varSiteColor[t][1]; }
double LatticeModel::getPixelColorB(int t) const { return varSiteColor[t][2]; }
void LatticeModel::setPixelColor(int t, double r, double g, double b) {
  varSiteColor[t][0] = r;
  varSiteColor[t][1] = g;
  varSiteColor[t][2] = b;
  requestRedraw();
}
double LatticeModel::getPixelPersistence(int t) const { return varHistoryPersistenceConst[t]; }
void LatticeModel::setPixelPersistence(int t, double persistence) {
  varHistoryPersistenceConst[t] = persistence;
}
double LatticeModel::getPixelAlpha(int t) const { return varSiteAlpha[t]; }
void LatticeModel::setPixelAlpha(int t, double alpha) {
  varSiteAlpha[t] = alpha;
  requestRedraw();
}
int LatticeModel::getPixelImmobile(int t) const { return varPixelImmobile[t]; }
void LatticeModel::setPixelImmobile(int t, int flag) { varPixelImmobile[t] = flag; }
int LatticeModel::getPixelMasqueradeAs(int t) const { return varSiteMasqueradeAs[t]; }
void LatticeModel::setPixelMasqueradeAs(int t, int type) { varSiteMasqueradeAs[t] = type; }
double LatticeModel::getPixelField(int t) const { return varSiteField[t]; }
void LatticeModel::setPixelField(int t, double energy) { varSiteField[t] = energy; }

int LatticeModel::getNumRules() const { return varNumRules; }
const std::string& LatticeModel::getRuleName(int r) const { return varRuleName[r].text(); }
void LatticeModel::setRuleName(int r, const std::string& name) { varRuleName[r] = SharedName(name); }
int LatticeModel::getRuleDisabled(int r) const { return varRuleDisabled[r]; }
void LatticeModel::setRuleDisabled(int r, int flag) { varRuleDisabled[r] = flag; }
int LatticeModel::getRuleIgnoreEnergy(int r) const { return varRuleIgnoreEnergy[r]; }
void LatticeModel::setRuleIgnoreEnergy(int r, int flag) { varRuleIgnoreEnergy[r] = flag; }
int LatticeModel::getRuleType(int r) const { return varRuleType[r]; }
int LatticeModel::getRulePixelA(int r) const { return varRuleEndPoints[r][0]; }
int LatticeModel::getRulePixelB(int r) const { return varRuleEndPoints[r][1]; }
double LatticeModel::getRuleParam(int r) const { return varRuleParameter[r]; }
void LatticeModel::setRuleParam(int r, double parameter) { varRuleParameter[r] = parameter; }
int LatticeModel::getRuleFacNum(int r) const { return varRuleFacNumAndType[r][0]; }
void LatticeModel::setRuleFacNum(int r, int number) { varRuleFacNumAndType[r][0] = number; }
int LatticeModel::getRuleFacPixel(int r) const { return varRuleFacNumAndType[r][1]; }
void LatticeModel::setRuleFacPixel(int r, int type) { varRuleFacNumAndType[r][1] = type; }

double LatticeModel::getPixelIntConstant(int a, int b) const { return varInteractionConstants[a][b]; }
void LatticeModel::setPixelIntConstant(int a, int b, double energy) {
  varInteractionConstants[a][b] = energy;
  varInteractionConstants[b][a] = energy;
}
double LatticeModel::getPixelIntConstantBCK(int a, int b) const { return varInteractionConstantsBCK[a][b]; }
void LatticeModel::setPixelIntConstantBCK(int a, int b, double energy) {
  varInteractionConstantsBCK[a][b] = energy;
  varInteractionConstantsBCK[b][a] = energy;
}

void LatticeModel::setPaintbrushColor(int type) { varPaintbrushColor = type; }
void LatticeModel::setSimulationSpeed(int speed) { varDelayAfterCycle = speed; }
void LatticeModel::setFullScreen(int flag) { varInFullScreen = flag; }
void LatticeModel::setPauseWhilePaint(int flag) { varPauseWhilePaint = flag; }

}  // namespace quorvane
