#include "model/LatticeModel.h"

namespace quorvane {
namespace {

/// Visits every ordered pair of types that an interaction covers. The order matters: a write to (a, b) also
/// writes (b, a), and each pair is visited in both orders.
template <class Visit>
void forEachCoveredPair(int endA, int endB, int numTypes, Visit&& visit) {
  if (endA != kAnyPixelType && endB != kAnyPixelType) {
    visit(endA, endB);
    visit(endB, endA);
  } else if (endA == kAnyPixelType && endB == kAnyPixelType) {
    for (int i = 0; i < numTypes; ++i)
      for (int j = 0; j < numTypes; ++j) visit(i, j);
  } else if (endB == kAnyPixelType) {
    for (int k = 0; k < numTypes; ++k) {
      visit(endA, k);
      visit(k, endA);
    }
  } else {
    for (int k = 0; k < numTypes; ++k) {
      visit(k, endB);
      visit(endB, k);
    }
  }
}

}  // namespace

void LatticeModel::setInteractionParams(int r, double value) {
  const bool disabled = getRuleDisabled(r) != 0;
  forEachCoveredPair(getRulePixelA(r), getRulePixelB(r), getNumPixelTypes(), [&](int a, int b) {
    if (disabled)
      setPixelIntConstantBCK(a, b, value);
    else
      setPixelIntConstant(a, b, value);
  });
}

void LatticeModel::disableInteraction(int r) {
  const int endA = getRulePixelA(r), endB = getRulePixelB(r), numTypes = getNumPixelTypes();
  const auto toBackup = [&](int a, int b) { setPixelIntConstantBCK(a, b, getPixelIntConstant(a, b)); };
  const auto clear = [&](int a, int b) { setPixelIntConstant(a, b, 0.0); };

  if (endA == kAnyPixelType && endB == kAnyPixelType) {
    // When a cross pair is visited in the other order it is already 0, which replaces the backup of both.
    forEachCoveredPair(endA, endB, numTypes, [&](int a, int b) {
      toBackup(a, b);
      clear(a, b);
    });
    return;
  }
  const auto move = [&](int a, int b) {
    toBackup(a, b);
    toBackup(b, a);
    clear(a, b);
    clear(b, a);
  };
  if (endA != kAnyPixelType && endB != kAnyPixelType) return move(endA, endB);
  for (int k = 0; k < numTypes; ++k) {
    if (endB == kAnyPixelType)
      move(endA, k);
    else
      move(k, endB);
  }
}

void LatticeModel::enableInteraction(int r) {
  forEachCoveredPair(getRulePixelA(r), getRulePixelB(r), getNumPixelTypes(),
                     [&](int a, int b) { setPixelIntConstant(a, b, getPixelIntConstantBCK(a, b)); });
}

void LatticeModel::clearInteraction(int endA, int endB) {
  forEachCoveredPair(endA, endB, getNumPixelTypes(), [&](int a, int b) { setPixelIntConstant(a, b, 0.0); });
}

}  // namespace quorvane
