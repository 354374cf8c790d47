#pragma once

#include <string>

namespace quorvane {

/// A build of the program.
struct Program {
  std::string name, version;
  std::string commit;    ///< of the sources, "-dirty" behind it if they differed from it; may be "unknown"
  std::string compiler;  ///< such as "GCC 12.2.0"
  std::string cLibrary;  ///< that it runs with, such as "glibc 2.36"

  bool operator==(const Program&) const = default;
};

/// A machine that runs it.
struct Machine {
  std::string processor;  ///< its name; may be "unknown"
  int cores = 1;          ///< that the system uses

  bool operator==(const Machine&) const = default;
};

/// The runner as it runs now.
Program thisProgram();
Machine thisMachine();

}  // namespace quorvane
