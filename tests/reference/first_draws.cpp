#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <thread>

#include "engine/f_ran0.h"
#include "reference/Ran0.h"

namespace {

void print(double (*draw)(), int count) {
  for (int k = 0; k < count; ++k) std::printf("%.17g\n", draw());
}

/// The engine's draws while another thread draws from the C library.
void printDisturbed(int count) {
  std::atomic<bool> draws{false}, ended{false};
  std::thread other([&] {
    for (; !ended; draws = true) std::rand();
  });
  while (!draws) std::this_thread::yield();
  print(quorvane::fRandReal, count);
  ended = true;
  other.join();
}

}  // namespace

/// Prints the first draws of this process: first_draws engine|disturbed|reference COUNT.
int main(int argc, char** argv) {
  if (argc != 3) return 2;
  const std::string_view of = argv[1];
  const int count = std::atoi(argv[2]);
  if (of == "engine")
    print(quorvane::fRandReal, count);
  else if (of == "disturbed")
    printDisturbed(count);
  else
    print(quorvane::reference::fRandReal, count);
}
