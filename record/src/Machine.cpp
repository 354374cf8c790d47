#include <sys/utsname.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <string>

#include "record/Program.h"

namespace quorvane {
namespace {

/// The value of the first "model name : VALUE" that Linux gives on most processors.
std::string modelName() {
  std::ifstream info("/proc/cpuinfo");
  for (std::string line; std::getline(info, line);) {
    const auto colon = line.find(": ");
    if (line.starts_with("model name") && colon != std::string::npos) return line.substr(colon + 2);
  }
  return {};
}

std::string architecture() {
  utsname system = {};
  return ::uname(&system) == 0 ? system.machine : "unknown";
}

}  // namespace

Machine thisMachine() {
  std::string processor = modelName();
  if (processor.empty()) processor = architecture();
  return {processor, static_cast<int>(std::max(1L, ::sysconf(_SC_NPROCESSORS_ONLN)))};
}

}  // namespace quorvane
