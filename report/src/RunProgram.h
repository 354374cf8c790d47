#pragma once

#include <string>
#include <vector>

namespace quorvane {

struct ProgramResult {
  bool isMissing = false;  ///< there is no such program
  int status = 0;          ///< exit status, or 128 and the signal that ended it
  std::string output, errors;
};

/// Runs a program of the search path with a text as its standard input. Throws std::system_error if it
/// cannot be started.
ProgramResult runProgram(const std::string& name, const std::vector<std::string>& arguments,
                         const std::string& input);

}  // namespace quorvane
