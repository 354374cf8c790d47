#include "checkpoint/ModelBytes.h"

#include <concepts>
#include <limits>

namespace quorvane {
namespace {

// A member that is added to the model's own ones must be transferred too. Those at present: the sweeps done,
// which are, the schedule of checks of the traces, and the run loops.
static_assert(sizeof(LatticeModel) - sizeof(ModelState) <= 96);

void transferName(ByteWriter& bytes, const SharedName& name) { bytes.value(name.text()); }
void transferName(ByteReader& bytes, SharedName& name) {
  std::string text;
  bytes.value(text);
  name = SharedName(std::move(text));
}

constexpr std::int32_t kHighestType = kMaxPixelTypes - 1;
constexpr std::int32_t kHighestRule = kMaxRules - 1;

/// The sites, and the traces of the types in use, of the lattice alone.
template <typename Bytes, typename Sites, typename Traces>
void transferLattice(Bytes& bytes, Sites& sites, Traces& traces, int imax, int jmax, int numTypes) {
  for (int i = 0; i < imax; ++i)
    for (int j = 0; j < jmax; ++j) bytes.within(sites[i][j], 0, kHighestType);
  for (int type = 0; type < numTypes; ++type)
    for (int i = 0; i < imax; ++i)
      for (int j = 0; j < jmax; ++j) bytes.value(traces[type][i][j]);
}

/// All fields. The names of the binding are as many as the members, so that a new member does not compile
/// until it is here.
template <typename Bytes, typename State>
void transferState(Bytes& bytes, State& state) {
  auto& [width, height, spacing, runState, painting, inFullScreen, myType, delay, pauseWhilePaint, brush,
         iHoverLast, jHoverLast, stateBeforePainting, numTypes, siteNames, colors, alphas, persistences,
         immobile, masquerades, fields, pairs, pairsBackup, numRules, ruleNames, ruleTypes, disabled,
         ignoreEnergy, endPoints, parameters, facilitation, rows, rowLengths, imax, jmax, sites, traces,
         largestTraces, k, kp, s, b, equilAtt, j, facNum] = state;
  bytes.value(width);
  bytes.value(height);
  bytes.value(spacing);
  bytes.within(runState, kNotInitialised, kPausedForPainting);
  bytes.value(painting);
  bytes.value(inFullScreen);
  bytes.value(myType);
  bytes.value(delay);
  bytes.value(pauseWhilePaint);
  bytes.within(brush, 0, kHighestType);
  bytes.value(iHoverLast);
  bytes.value(jHoverLast);
  bytes.within(stateBeforePainting, kNotInitialised, kPausedForPainting);

  bytes.within(numTypes, 1, kMaxPixelTypes);
  for (auto& name : siteNames) transferName(bytes, name);
  bytes.value(colors);
  bytes.value(alphas);
  bytes.value(persistences);
  bytes.value(immobile);
  bytes.within(masquerades, kNoMasquerade, kHighestType);
  bytes.value(fields);
  bytes.value(pairs);
  bytes.value(pairsBackup);

  bytes.within(numRules, 0, kMaxRules);
  for (auto& name : ruleNames) transferName(bytes, name);
  bytes.value(ruleTypes);
  bytes.value(disabled);
  bytes.value(ignoreEnergy);
  for (auto& ends : endPoints) bytes.within(ends, kAnyPixelType, kHighestType);
  bytes.value(parameters);
  for (auto& needed : facilitation) {
    bytes.value(needed[0]);
    bytes.within(needed[1], kAnyPixelType, kHighestType);
  }
  // -1 is the entry behind the end of a row that lost one.
  for (auto& row : rows) bytes.within(row, -1, kHighestRule);
  bytes.within(rowLengths, 0, kMaxRules);

  bytes.within(imax, 0, kMaxSide);
  bytes.within(jmax, 0, kMaxSide);
  transferLattice(bytes, sites, traces, imax, jmax, numTypes);
  bytes.value(largestTraces);

  for (auto* unused : {&k, &kp, &s, &b, &equilAtt, &j}) bytes.value(*unused);
  bytes.value(facNum);
}

}  // namespace

void transferModel(ByteWriter& bytes, const LatticeModel& model) {
  transferState(bytes, static_cast<const ModelState&>(model));
  bytes.value(model.sweepsDone());
}

void transferModel(ByteReader& bytes, LatticeModel& model) {
  transferState(bytes, static_cast<ModelState&>(model));
  std::int64_t sweeps = 0;
  bytes.within(sweeps, 0, std::numeric_limits<std::int64_t>::max());
  model.setSweepsDone(sweeps);
}

}  // namespace quorvane
