#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "model/LatticeModel.h"

namespace quorvane {

/// Components 0 to 1.
struct Color {
  double red, green, blue;
};

/// Builds a system step by step. Every type in use must be given its name and colour, and every site its
/// type; otherwise they are random.
class SystemBuilder {
 public:
  explicit SystemBuilder(int numTypes, int across = 128, int upwards = 104);

  LatticeModel& model() { return *model_; }
  int across() const { return model_->getIMax(); }
  int upwards() const { return model_->getJMax(); }

  void type(int t, const char* name, Color color, double persistence = 0.0);
  void immobile(int t) { model_->setPixelImmobile(t, 1); }

  /// Sets every site to the type that the pattern returns for its column i and row j, i in the outer loop.
  template <class Pattern>
  void fill(Pattern&& pattern) {
    for (int i = 0; i < across(); ++i)
      for (int j = 0; j < upwards(); ++j) model_->setSiteValue(i, j, pattern(i, j));
  }

  // Each adds a rule and returns its index.

  int flip(const std::string& name, int from, int to, double probability);
  int flipBothWays(const std::string& name, int endA, int endB, double probability);
  int swap(const std::string& name, int mover, int partner, double probability);
  int pairEnergy(const std::string& name, int endA, int endB, double energy);

  /// Sets the number of neighbours of the type that the flip needs.
  void needs(int rule, int neighbours, int ofType);

  /// Eight flips, the k-th of which needs k neighbours of the type. With n such neighbours n of the eight are
  /// possible, and one of the eight is drawn, so the rate is probability * n / 8: proportional to n.
  void flipForEachNeighbour(const std::string& name, int from, int to, double probability, int ofType);

 private:
  int rule(const std::string& name, RuleType type, int endA, int endB, double param);

  std::unique_ptr<LatticeModel> model_;
};

}  // namespace quorvane
