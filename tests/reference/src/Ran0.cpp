#include "reference/Ran0.h"

namespace quorvane::reference {

Ran0<CLibrary> source;

double fn_ran0() { return source.next(); }

double fRandReal() { return fn_ran0(); }

int fRandInt(int n) {
  const double r = fRandReal();
  return static_cast<int>(std::floor(r * n) + 1.0);
}

}  // namespace quorvane::reference
