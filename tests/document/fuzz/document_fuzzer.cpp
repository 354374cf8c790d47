#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "DocumentHarness.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string wrong = quorvane::checkDocument({reinterpret_cast<const char*>(data), size});
  if (!wrong.empty()) {
    std::fprintf(stderr, "%s\n", wrong.c_str());
    std::abort();
  }
  return 0;
}
