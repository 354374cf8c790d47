#include <iostream>
#include <variant>

#include "batch/RunBatch.h"

int main(int argc, char** argv) {
  using namespace quorvane;
  const auto command = parseCommandLine(argc, argv);
  if (const auto* status = std::get_if<ExitStatus>(&command)) return *status;
  return runBatch(std::get<BatchOptions>(command), std::cerr);
}
