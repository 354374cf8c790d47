#include <limits>

#include "Bindings.h"
#include "Sweeping.h"
#include "checkpoint/RandomBytes.h"
#include "checkpoint/SealedBytes.h"
#include "engine/f_ran0.h"

namespace quorvane {
namespace {

namespace py = pybind11;

void seedSource(std::int64_t seed) {
  constexpr std::int32_t largest = std::numeric_limits<std::int32_t>::max();
  if (seed < 1 || seed > largest)
    throw py::value_error("a seed is from 1 to " + std::to_string(largest) + ", not " + std::to_string(seed));
  freeSource();
  processRandomSource.startAnew(static_cast<std::int32_t>(seed));
}

double drawReal() {
  requireSource();
  return fRandReal();
}

py::bytes sourceState() {
  requireSource();
  const auto state = processRandomSource.state();
  if (!state)
    throw std::runtime_error(
        "the random numbers of this platform's C library have no state that can be read");
  ByteWriter bytes;
  transferRandom(bytes, *state);
  return seal(bytes.bytes());
}

void setSourceState(const std::string& sealed) {
  RandomSource::State state;
  ByteReader bytes(contentOfSealed(sealed));
  transferRandom(bytes, state);
  bytes.requireEnd();
  freeSource();
  processRandomSource.goOnFrom(state);
}

}  // namespace

void bindSource(py::module_& module) {
  module.def("seed", seedSource);
  module.def("random", drawReal);
  module.def("getstate", sourceState);
  module.def("setstate", setSourceState);
}

}  // namespace quorvane
