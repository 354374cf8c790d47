#pragma once

#include <stdexcept>

namespace quorvane {

/// A checkpoint that cannot be read, written or continued from. what() is one line that begins with a verb
/// and does not name the file: "is damaged (a number is out of range)".
class CheckpointError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace quorvane
