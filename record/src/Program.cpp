#include "record/Program.h"

#ifdef __GLIBC__
#include <gnu/libc-version.h>
#endif

#include "Commit.h"

namespace quorvane {
namespace {

std::string compilerOfTheBuild() {
#if defined(__clang__)
  return "Clang " __clang_version__;
#elif defined(__GNUC__)
  return "GCC " __VERSION__;
#else
  return "unknown";
#endif
}

std::string cLibraryInUse() {
#ifdef __GLIBC__
  return std::string("glibc ") + ::gnu_get_libc_version();
#else
  return "unknown";
#endif
}

}  // namespace

Program thisProgram() {
  return {"quorvane-batch", QUORVANE_VERSION, commitOfTheBuild(), compilerOfTheBuild(), cLibraryInUse()};
}

}  // namespace quorvane
