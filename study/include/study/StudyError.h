#pragma once

#include <stdexcept>
#include <string>

namespace quorvane {

/// Why a study cannot be read, made or tabulated; what() is one line that names the file, and the line or the
/// place in it if there is one.
class StudyError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace quorvane
