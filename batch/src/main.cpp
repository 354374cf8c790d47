#include <iostream>
#include <variant>

#include "batch/RunBatch.h"
#include "batch/StopSignals.h"

int main(int argc, char** argv) {
  using namespace quorvane;
  const auto command = parseCommandLine(argc, argv);
  if (const auto* status = std::get_if<ExitStatus>(&command)) return *status;
  const ExitStatus status = runBatch(std::get<BatchOptions>(command), std::cerr);
  if (status == kExitInterrupted || status == kExitTerminated) endBySignal(stopSignal());
  return status;
}
