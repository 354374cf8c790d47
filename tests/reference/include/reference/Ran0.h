#pragma once

#include <cmath>
#include <cstdlib>

namespace quorvane::reference {

/// The C library's generator.
struct CLibrary {
  static void srand(unsigned seed) { std::srand(seed); }
  static int rand() { return std::rand(); }
};

/// The literal shuffle table: doubles throughout, with a given platform generator.
template <class Platform>
class Ran0 {
 public:
  explicit Ran0(int firstSeed = 10) : seed(firstSeed) {}

  double next() {
    if (iff == 0) {
      iff = 1;
      maxran = 2147483648.0;
      Platform::srand(static_cast<unsigned>(seed));
      seed = 1;
      for (int k = 1; k <= 97; ++k) Platform::rand();
      for (int k = 1; k <= 97; ++k) v[k] = static_cast<double>(Platform::rand());
      y = static_cast<double>(Platform::rand());
    }
    const int k = slot(y);
    y = v[k];
    v[k] = static_cast<double>(Platform::rand());
    return y / maxran;
  }

  /// The slot that a last value selects, 1 to 97.
  static int slot(double last) { return static_cast<int>(1.0 + 97.0 * last / 2147483648.0); }

  /// The value that next() will return, without drawing. Only after the first draw.
  double upcoming() const { return v[slot(y)] / maxran; }

 private:
  int seed;
  int iff = 0;
  double maxran = 0.0;
  double v[98] = {};
  double y = 0.0;
};

/// The process-wide source of the reference functions. It draws from the C library, which other code of the
/// process shares.
extern Ran0<CLibrary> source;

double fn_ran0();
double fRandReal();
int fRandInt(int n);

}  // namespace quorvane::reference
