#include "engine/f_ran0.h"

namespace quorvane {

constinit RandomSource processRandomSource;

}  // namespace quorvane
