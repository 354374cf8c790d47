// Compiled once for each fuzzer: QUORVANE_FUZZ_CHECK is the function that it feeds.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "CheckpointCheck.h"
#include "CommandLineCheck.h"
#include "DocumentHarness.h"
#include "ParserCheck.h"
#include "RecordCheck.h"
#include "StartCheck.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string wrong = quorvane::QUORVANE_FUZZ_CHECK({reinterpret_cast<const char*>(data), size});
  if (!wrong.empty()) {
    std::fprintf(stderr, "%s\n", wrong.c_str());
    std::abort();
  }
  return 0;
}
