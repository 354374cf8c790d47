#pragma once

namespace quorvane {

/// The commit of the sources of this build.
const char* commitOfTheBuild();

}  // namespace quorvane
