// Preloaded into a program, writes each seed that the program passes to srand into the file named by
// SRAND_LOG.

#include <cstdio>
#include <cstdlib>

extern "C" void srand(unsigned seed) {
  if (const char* path = std::getenv("SRAND_LOG"))
    if (std::FILE* log = std::fopen(path, "a")) {
      std::fprintf(log, "%u\n", seed);
      std::fclose(log);
    }
  srandom(seed);
}
