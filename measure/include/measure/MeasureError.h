#pragma once

#include <stdexcept>

namespace quorvane {

/// What is wrong with a list of observables, a snapshot or a stored state, in one line.
class MeasureError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace quorvane
