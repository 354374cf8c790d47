#include "reference/Trace.h"

namespace quorvane::reference {

void sweep(System& system) {
  for (int k = 0; k <= system.imax * system.jmax; ++k) attempt(system);
}

double updateTrace(const System& system, int type, double persistence, double trace[256][256]) {
  double max = 0.0;
  for (int i = 0; i < system.imax; ++i)
    for (int j = 0; j < system.jmax; ++j) {
      double h = trace[i][j] * persistence;
      if (system.lattice[i][j] == type) h = 1.0 + h;
      trace[i][j] = h;
      if (h > max) max = h;
    }
  return 1.0 > max ? 1.0 : max;
}

}  // namespace quorvane::reference
