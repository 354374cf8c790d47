// Prints a hash of each document after some sweeps from a fresh start: final_states SWEEPS DOCUMENT...
#include <cinttypes>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string_view>

#include "DocumentSupport.h"

namespace {

/// FNV-1a of 64 bits.
std::uint64_t hashOf(std::string_view text) {
  std::uint64_t hash = 0xcbf29ce484222325;
  for (const char letter : text) hash = (hash ^ static_cast<unsigned char>(letter)) * 0x100000001b3;
  return hash;
}

}  // namespace

int main(int argc, char** argv) {
  using namespace quorvane;
  if (argc < 3) {
    std::fputs("usage: final_states SWEEPS DOCUMENT...\n", stderr);
    return 2;
  }
  for (int k = 2; k < argc; ++k) {
    const std::filesystem::path document = argv[k];
    restartRandomNumbers();
    const auto model = freshModel();
    if (openDocument(*model, document).status != OpenStatus::kOpened) return 1;
    model->runSweeps(std::atoi(argv[1]));
    std::printf("%016" PRIx64 "  %s\n", hashOf(writeDocument(*model)), document.filename().c_str());
  }
}
