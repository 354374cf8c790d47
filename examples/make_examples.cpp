// Writes the example documents into the folder named on the command line; every run writes the same bytes.

#include <cmath>
#include <cstdint>
#include <filesystem>
#include <iostream>
#include <memory>
#include <random>

#include "document/ModelDocument.h"

namespace quorvane {
namespace {

constexpr int kAcross = 128;
constexpr int kUpwards = 104;

struct Color {
  double red, green, blue;
};

/// Builds a system step by step.
class Builder {
 public:
  explicit Builder(int numTypes) : model_(std::make_unique<LatticeModel>()) {
    model_->awakeFromNib();
    model_->initializeLatticeModel(numTypes, kAcross, kUpwards);
  }

  LatticeModel& model() { return *model_; }

  void type(int t, const char* name, Color color, double persistence = 0.0) {
    model_->setPixelName(t, name);
    model_->setPixelColor(t, color.red, color.green, color.blue);
    model_->setPixelPersistence(t, persistence);
  }

  /// Gives every site the type that the pattern says for it.
  template <class Pattern>
  void fill(Pattern&& pattern) {
    for (int i = 0; i < kAcross; ++i)
      for (int j = 0; j < kUpwards; ++j) model_->setSiteValue(i, j, pattern(i, j));
  }

  int rule(const char* name, RuleType type, int endA, int endB, double param) {
    const int r = model_->getNumRules();
    model_->makeNewRule(name, type, endA, endB);
    model_->setRuleParam(r, param);
    if (type == kPixelPixelInteraction) model_->setInteractionParams(r, param);
    return r;
  }

  void needs(int r, int neighbours, int ofType) {
    model_->setRuleFacNum(r, neighbours);
    model_->setRuleFacPixel(r, ofType);
  }

 private:
  std::unique_ptr<LatticeModel> model_;
};

double distance(double i, double j, double centreI, double centreJ) {
  return std::hypot(i - centreI, j - centreJ);
}

/// Ever wider stripes over a square and a ring: the narrow break into droplets, the wide hold, corners round.
void designPhases(Builder& system) {
  constexpr int water = 0, oil = 1;
  system.type(water, "Water", {0.05, 0.16, 0.34});
  system.type(oil, "Oil", {0.98, 0.72, 0.22}, 0.5);
  system.rule("Oil and water trade places", kSwap, oil, water, 1.0);
  system.rule("Oil and water repel", kPixelPixelInteraction, oil, water, 1.1);
  system.fill([](int i, int j) {
    struct Stripe {
      int from, width;
    };
    constexpr Stripe stripes[] = {{8, 1}, {16, 2}, {26, 3}, {38, 4}, {52, 6}, {70, 8}, {92, 12}};
    if (j >= 48) {
      for (const auto [from, width] : stripes)
        if (j < 100 && i >= from && i < from + width) return oil;
      return water;
    }
    const bool inSquare = i >= 12 && i < 44 && j >= 8 && j < 40;
    const double fromRing = distance(i, j, 88, 24);
    const bool inRing = fromRing > 12 && fromRing < 18;
    return inSquare || inRing ? oil : water;
  });
}

/// Mobility that only mobility can wake spreads from a spark through the doors of a walled house.
void designFlips(Builder& system) {
  constexpr int frozen = 0, mobile = 1, wall = 2;
  system.type(frozen, "Frozen", {0.03, 0.05, 0.12});
  system.type(mobile, "Mobile", {0.65, 1.0, 0.92}, 0.96);
  system.type(wall, "Wall", {0.45, 0.40, 0.36});
  system.model().setPixelImmobile(wall, 1);
  system.model().setPixelField(mobile, 2.4);
  const int flip = system.rule("Mobile wakes frozen", kReversibleFlip, frozen, mobile, 1.0);
  system.needs(flip, 1, mobile);
  system.fill([](int i, int j) {
    const bool outer = i % 32 < 2 || j % 26 < 2;
    const bool door = std::abs(i % 32 - 17) < 3 || std::abs(j % 26 - 14) < 3;
    if (outer && !door) return wall;
    return distance(i, j, 49, 40) < 7 ? mobile : frozen;
  });
}

/// Particles that wander through a medium freeze where they meet the cluster that began with one seed.
void designGrowth(Builder& system) {
  constexpr int medium = 0, wanderer = 1, tip = 2, crystal = 3;
  system.type(medium, "Medium", {0.02, 0.03, 0.09});
  system.type(wanderer, "Wanderer", {0.20, 0.42, 0.62}, 0.6);
  system.type(tip, "Fresh crystal", {1.0, 0.95, 0.75}, 0.9);
  system.type(crystal, "Crystal", {0.85, 0.30, 0.42});
  system.model().setPixelImmobile(tip, 1);
  system.model().setPixelImmobile(crystal, 1);
  system.model().setPixelMasqueradeAs(crystal, tip);
  system.rule("Wanderer moves", kSwap, wanderer, medium, 1.0);
  const int freeze = system.rule("Wanderer freezes at the crystal", kIrreversibleFlip, wanderer, tip, 1.0);
  system.needs(freeze, 1, tip);
  system.rule("Fresh crystal ages", kIrreversibleFlip, tip, crystal, 0.03);
  std::mt19937 random(1);
  system.fill([&random](int i, int j) {
    constexpr unsigned onePerSites = 6;
    const bool occupied = random() % onePerSites == 0;
    const double fromSeed = distance(i, j, kAcross / 2, kUpwards / 2);
    if (fromSeed < 0.5) return tip;
    return occupied && fromSeed > 2 ? wanderer : medium;
  });
}

bool save(const std::filesystem::path& path, int numTypes, void (*design)(Builder&)) {
  Builder system(numTypes);
  design(system);
  const SaveResult result = saveDocument(system.model(), path);
  if (!result.saved) std::cerr << path.string() << ": " << result.reason << '\n';
  return result.saved;
}

}  // namespace
}  // namespace quorvane

int main(int argc, char** argv) {
  using namespace quorvane;
  if (argc != 2) {
    std::cerr << "usage: make_examples FOLDER\n";
    return 2;
  }
  const std::filesystem::path folder = argv[1];
  const bool saved = save(folder / "phase-separation.quorvane", 2, designPhases) &&
                     save(folder / "facilitated-flips.quorvane", 3, designFlips) &&
                     save(folder / "growth-from-a-seed.quorvane", 4, designGrowth);
  return saved ? 0 : 1;
}
