#include <utility>

#include "Indices.h"
#include "model/LatticeModel.h"

namespace quorvane {

int LatticeModel::getIMax() const { return varImax; }
int LatticeModel::getJMax() const { return varJmax; }
int LatticeModel::getSiteValue(int i, int j) const { return varSiteValues[siteIndex(i)][siteIndex(j)]; }
void LatticeModel::setSiteValue(int i, int j, int type) { varSiteValues[siteIndex(i)][siteIndex(j)] = type; }
double LatticeModel::getWidth() const { return varMyWidth; }
double LatticeModel::getHeight() const { return varMyHeight; }
int LatticeModel::getNumPixelTypes() const { return varNumSiteTypes; }

const std::string& LatticeModel::getPixelName(int t) const { return varSiteName[typeIndex(t)].text(); }
void LatticeModel::setPixelName(int t, SharedName name) { varSiteName[typeIndex(t)] = std::move(name); }
double LatticeModel::getPixelColorR(int t) const { return varSiteColor[typeIndex(t)][0]; }
double LatticeModel::getPixelColorG(int t) const { return varSiteColor[typeIndex(t)][1]; }
double LatticeModel::getPixelColorB(int t) const { return varSiteColor[typeIndex(t)][2]; }
void LatticeModel::setPixelColor(int t, double r, double g, double b) {
  varSiteColor[typeIndex(t)][0] = r;
  varSiteColor[typeIndex(t)][1] = g;
  varSiteColor[typeIndex(t)][2] = b;
  requestRedraw();
}
double LatticeModel::getPixelPersistence(int t) const { return varHistoryPersistenceConst[typeIndex(t)]; }
void LatticeModel::setPixelPersistence(int t, double persistence) {
  varHistoryPersistenceConst[typeIndex(t)] = persistence;
}
double LatticeModel::getPixelAlpha(int t) const { return varSiteAlpha[typeIndex(t)]; }
void LatticeModel::setPixelAlpha(int t, double alpha) {
  varSiteAlpha[typeIndex(t)] = alpha;
  requestRedraw();
}
int LatticeModel::getPixelImmobile(int t) const { return varPixelImmobile[typeIndex(t)]; }
void LatticeModel::setPixelImmobile(int t, int flag) { varPixelImmobile[typeIndex(t)] = flag; }
int LatticeModel::getPixelMasqueradeAs(int t) const { return varSiteMasqueradeAs[typeIndex(t)]; }
void LatticeModel::setPixelMasqueradeAs(int t, int type) { varSiteMasqueradeAs[typeIndex(t)] = type; }
double LatticeModel::getPixelField(int t) const { return varSiteField[typeIndex(t)]; }
void LatticeModel::setPixelField(int t, double energy) { varSiteField[typeIndex(t)] = energy; }

int LatticeModel::getNumRules() const { return varNumRules; }
const std::string& LatticeModel::getRuleName(int r) const { return varRuleName[ruleIndex(r)].text(); }
void LatticeModel::setRuleName(int r, const std::string& name) {
  varRuleName[ruleIndex(r)] = SharedName(name);
}
int LatticeModel::getRuleDisabled(int r) const { return varRuleDisabled[ruleIndex(r)]; }
void LatticeModel::setRuleDisabled(int r, int flag) { varRuleDisabled[ruleIndex(r)] = flag; }
int LatticeModel::getRuleIgnoreEnergy(int r) const { return varRuleIgnoreEnergy[ruleIndex(r)]; }
void LatticeModel::setRuleIgnoreEnergy(int r, int flag) { varRuleIgnoreEnergy[ruleIndex(r)] = flag; }
int LatticeModel::getRuleType(int r) const { return varRuleType[ruleIndex(r)]; }
int LatticeModel::getRulePixelA(int r) const { return varRuleEndPoints[ruleIndex(r)][0]; }
int LatticeModel::getRulePixelB(int r) const { return varRuleEndPoints[ruleIndex(r)][1]; }
double LatticeModel::getRuleParam(int r) const { return varRuleParameter[ruleIndex(r)]; }
void LatticeModel::setRuleParam(int r, double parameter) { varRuleParameter[ruleIndex(r)] = parameter; }
int LatticeModel::getRuleFacNum(int r) const { return varRuleFacNumAndType[ruleIndex(r)][0]; }
void LatticeModel::setRuleFacNum(int r, int number) { varRuleFacNumAndType[ruleIndex(r)][0] = number; }
int LatticeModel::getRuleFacPixel(int r) const { return varRuleFacNumAndType[ruleIndex(r)][1]; }
void LatticeModel::setRuleFacPixel(int r, int type) { varRuleFacNumAndType[ruleIndex(r)][1] = type; }

double LatticeModel::getPixelIntConstant(int a, int b) const {
  return varInteractionConstants[typeIndex(a)][typeIndex(b)];
}
void LatticeModel::setPixelIntConstant(int a, int b, double energy) {
  varInteractionConstants[typeIndex(a)][typeIndex(b)] = energy;
  varInteractionConstants[typeIndex(b)][typeIndex(a)] = energy;
}
double LatticeModel::getPixelIntConstantBCK(int a, int b) const {
  return varInteractionConstantsBCK[typeIndex(a)][typeIndex(b)];
}
void LatticeModel::setPixelIntConstantBCK(int a, int b, double energy) {
  varInteractionConstantsBCK[typeIndex(a)][typeIndex(b)] = energy;
  varInteractionConstantsBCK[typeIndex(b)][typeIndex(a)] = energy;
}

void LatticeModel::setPaintbrushColor(int type) { varPaintbrushColor = type; }
void LatticeModel::setSimulationSpeed(int speed) { varDelayAfterCycle = speed; }
void LatticeModel::setFullScreen(int flag) { varInFullScreen = flag; }
void LatticeModel::setPauseWhilePaint(int flag) { varPauseWhilePaint = flag; }

}  // namespace quorvane
