#include <iterator>
#include <limits>

#include "RandomValues.h"
#include "reference/Cases.h"

namespace quorvane::reference {
namespace {

using Limits = std::numeric_limits<double>;
constexpr double kOddReals[] = {0.0,
                                -0.0,
                                1.0,
                                -1.0,
                                0.5,
                                Limits::quiet_NaN(),
                                Limits::infinity(),
                                -Limits::infinity(),
                                Limits::denorm_min(),
                                -Limits::denorm_min(),
                                1e-310,
                                Limits::min(),
                                Limits::epsilon(),
                                Limits::max(),
                                -Limits::max(),
                                745.2,
                                -710.0};
constexpr int kFlags[] = {0, 0, 1, 1, 2, -1, 7};
constexpr int kCapacity = 50;
constexpr int kNumTypesOfRules = std::size(kEnteredRows);

/// Builds one system from random choices. Each table first draws how odd it is, so that among thousands many
/// have mostly accepted attempts and many have odd values everywhere.
class Builder {
 public:
  Builder(Size size, std::uint64_t seed) : values_(seed), system_(std::make_unique<System>()) {
    system_->imax = size.imax;
    system_->jmax = size.jmax;
    system_->numTypes = values_.oneOf({1, 2, 2, 3, values_.from(1, 10), values_.from(1, 10)});
    oddReals_ = values_.oneIn(3);
    disabledOneIn_ = values_.oneOf({1, 2, 5, 1000, 1000});
  }

  std::unique_ptr<System> build() {
    fillLattice();
    fillTypes();
    makeRules();
    if (values_.oneIn(3)) deleteSomeRules();
    if (values_.oneIn(3)) addEntries();
    return std::move(system_);
  }

 private:
  void fillLattice() {
    // A few systems hold types that are not in use. Sites outside the used corner hold a special type, which
    // reveals any read of them.
    const int heldTypes = values_.oneIn(8) ? 10 : system_->numTypes;
    for (auto& row : system_->lattice)
      for (int& site : row) site = 9;
    for (int i = 0; i < system_->imax; ++i)
      for (int j = 0; j < system_->jmax; ++j) system_->lattice[i][j] = values_.below(heldTypes);
  }

  void fillTypes() {
    const bool symmetric = values_.oneIn(2);
    for (int a = 0; a < 10; ++a) {
      system_->immobile[a] = values_.oneIn(5) ? values_.oneOf(kFlags) : 0;
      system_->masquerade[a] = values_.oneIn(3) ? values_.oneOf({a, values_.below(10)}) : -1;
      system_->field[a] = energy();
      for (int b = 0; b < 10; ++b) system_->J[a][b] = symmetric && b < a ? system_->J[b][a] : energy();
    }
  }

  void makeRules() {
    const int count =
        values_.oneIn(20) ? kCapacity : values_.below(values_.oneOf({4, 12, 24, kCapacity + 1}));
    for (int k = 0; k < count; ++k) {
      const int rule = addRule(*system_, values_.below(kNumTypesOfRules), end(), end());
      if (rule == -1) return;
      system_->ruleParameter[rule] = parameter();
      // Only -1 means any type; a swap with another negative end never finds a partner.
      if (system_->ruleType[rule] == 2 && values_.oneIn(10)) system_->ruleEndPoints[rule][1] = -2;
      system_->ruleFac[rule][0] = needed();
      system_->ruleFac[rule][1] = values_.from(-1, 9);
      system_->ruleIgnoreEnergy[rule] = values_.oneOf(kFlags);
      system_->ruleDisabled[rule] = values_.oneIn(disabledOneIn_) ? values_.oneOf({1, 1, 2, -1}) : 0;
    }
  }

  void deleteSomeRules() {
    for (int k = values_.from(1, 6); k > 0 && system_->numRules > 0; --k)
      deleteRule(*system_, values_.below(system_->numRules));
  }

  /// Additional entries for some rows: rules twice, and rules that are not in use.
  void addEntries() {
    for (int t = 0; t < 10; ++t) {
      int& count = system_->accessibleCount[t];
      for (int k = values_.below(4); k > 0 && count < kCapacity; --k)
        system_->accessible[t][count++] =
            values_.below(values_.oneIn(2) ? kCapacity : system_->numRules + 1) % kCapacity;
    }
  }

  int end() { return values_.oneIn(3) ? -1 : values_.below(values_.oneIn(10) ? 10 : system_->numTypes); }

  /// Neighbours needed for facilitation: up to 16 can count, since each may count twice.
  int needed() {
    if (!values_.oneIn(3)) return 0;
    return values_.oneOf({values_.from(-2, 9), values_.from(-2, 9), values_.from(8, 20), 128, 200, 256,
                          std::numeric_limits<int>::max(), std::numeric_limits<int>::min()});
  }

  double energy() {
    if (oddReals_ && values_.oneIn(3)) return values_.oneOf(kOddReals);
    return values_.oneIn(4) ? 0.0 : values_.between(-1.5, 1.5);
  }

  double parameter() {
    if (oddReals_ && values_.oneIn(3)) return values_.oneOf(kOddReals);
    return values_.oneOf({0.0, 1.0, values_.between(0.0, 1.0), values_.between(1.0, 5.0), 1.0, -0.3});
  }

  RandomValues values_;
  std::unique_ptr<System> system_;
  bool oddReals_;
  int disabledOneIn_;
};

}  // namespace

std::span<const Size> awkwardSizes() {
  static constexpr Size sizes[] = {{1, 1},   {1, 2},   {2, 1},    {1, 3},   {3, 1},    {1, 7},    {7, 1},
                                   {1, 256}, {256, 1}, {2, 2},    {2, 3},   {3, 2},    {2, 9},    {9, 2},
                                   {2, 256}, {256, 2}, {3, 3},    {3, 4},   {4, 4},    {3, 256},  {256, 3},
                                   {5, 7},   {13, 11}, {17, 256}, {63, 65}, {255, 31}, {256, 256}};
  return sizes;
}

std::unique_ptr<System> randomSystem(Size size, std::uint64_t seed) { return Builder(size, seed).build(); }

}  // namespace quorvane::reference
