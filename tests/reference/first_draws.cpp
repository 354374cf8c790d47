#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "engine/f_ran0.h"
#include "reference/Ran0.h"

/// Prints the first draws of this process: first_draws engine|reference COUNT.
int main(int argc, char** argv) {
  if (argc != 3) return 2;
  const bool engine = std::string_view(argv[1]) == "engine";
  for (int k = std::atoi(argv[2]); k > 0; --k)
    std::printf("%.17g\n", engine ? quorvane::fRandReal() : quorvane::reference::fRandReal());
}
