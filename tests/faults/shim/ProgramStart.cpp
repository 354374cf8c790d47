#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstdlib>

#include "FaultPlan.h"

// Calls before main, such as those that load libraries, are not the program's.

namespace {

using Main = int (*)(int, char**, char**);
using Start = int (*)(Main, int, char**, void (*)(), void (*)(), void (*)(), void*);
Main programsMain = nullptr;

quorvane::FaultPlan* planIn(const char* path) {
  const long file = ::syscall(SYS_openat, AT_FDCWD, path, O_RDWR);
  void* memory = ::mmap(nullptr, sizeof(quorvane::FaultPlan), PROT_READ | PROT_WRITE, MAP_SHARED,
                        static_cast<int>(file), 0);
  ::syscall(SYS_close, file);
  if (memory == MAP_FAILED) std::abort();
  return static_cast<quorvane::FaultPlan*>(memory);
}

int mainWithPlan(int argc, char** argv, char** environment) {
  const char* path = std::getenv(quorvane::kPlanVariable);
  if (path) quorvane::setFaultPlan(planIn(path));
  const int status = programsMain(argc, argv, environment);
  if (path) quorvane::setFaultPlan(nullptr);
  return status;
}

}  // namespace

extern "C" int __libc_start_main(Main main, int argc, char** argv, void (*init)(), void (*fini)(),
                                 void (*loaderFini)(), void* stackEnd) {
  programsMain = main;
  const auto start = reinterpret_cast<Start>(::dlsym(RTLD_NEXT, "__libc_start_main"));
  return start(mainWithPlan, argc, argv, init, fini, loaderFini, stackEnd);
}
