#include "SharedPlan.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>
#include <new>
#include <stdexcept>

namespace quorvane {

SharedPlan::SharedPlan() {
  const std::string path = folder_ / "plan";
  const int file = ::open(path.c_str(), O_RDWR | O_CREAT, 0600);
  void* memory = MAP_FAILED;
  if (::ftruncate(file, sizeof(FaultPlan)) == 0)
    memory = ::mmap(nullptr, sizeof(FaultPlan), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
  ::close(file);
  if (memory == MAP_FAILED) throw std::runtime_error("no shared memory");
  plan_ = new (memory) FaultPlan;
  ::setenv(kPlanVariable, path.c_str(), 1);
  ::setenv("LD_PRELOAD", CALL_SHIM, 1);
}

SharedPlan::~SharedPlan() {
  ::unsetenv("LD_PRELOAD");
  ::unsetenv(kPlanVariable);
  ::munmap(plan_, sizeof(FaultPlan));
}

}  // namespace quorvane
