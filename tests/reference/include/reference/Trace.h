#pragma once

#include "reference/System.h"

namespace quorvane::reference {

/// One sweep: imax * jmax + 1 attempts.
void sweep(System& system);

/// Decays the trace of a type and adds 1 where a site holds the type. Returns the new maximum, at least 1.
double updateTrace(const System& system, int type, double persistence, double trace[256][256]);

}  // namespace quorvane::reference
