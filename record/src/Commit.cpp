#include "Commit.h"

#include "CommitOfTheBuild.h"

namespace quorvane {

const char* commitOfTheBuild() { return QUORVANE_COMMIT; }

}  // namespace quorvane
