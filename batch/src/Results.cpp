#include "batch/Results.h"

#include <iterator>

namespace quorvane {
namespace {

constexpr Result kResults[] = {
    {.target = &BatchOptions::output,
     .option = "--output",
     .help = "The document after the run",
     .kind = Result::kFile,
     .written = Result::kAfterRun,
     .mayReplaceDocument = true},
    {.target = &BatchOptions::populations,
     .option = "--populations",
     .help = "The number of sites of each pixel type, as CSV,\n"
             "a row every K sweeps",
     .kind = Result::kFile,
     .written = Result::kDuringRun},
    {.target = &BatchOptions::measure,
     .option = "--measure",
     .help = "The values of --observables, as CSV, a row every K\n"
             "sweeps",
     .kind = Result::kFile,
     .written = Result::kDuringRun},
    {.target = &BatchOptions::picture,
     .option = "--picture",
     .help = "The lattice after the run, as the window shows it,\n"
             "as PNG",
     .kind = Result::kFile,
     .written = Result::kAfterRun,
     .showsTraces = true},
    {.target = &BatchOptions::lattices,
     .option = "--lattices",
     .help = "The type of every site every K sweeps, as a NumPy\n"
             "array [record][i][j] of uint8",
     .kind = Result::kFile,
     .written = Result::kDuringRun,
     .mayBeStream = false},
    {.target = &BatchOptions::frames,
     .option = "--frames",
     .help = "A picture every K sweeps: frame-000000.png is the\n"
             "start. Makes the folder if there is none; refuses\n"
             "one that holds frames already",
     .kind = Result::kFolder,
     .written = Result::kDuringRun,
     .showsTraces = true},
    {.target = &BatchOptions::record,
     .option = "--record",
     .help = "What made the results, as JSON: program, machine,\n"
             "options, and the SHA-256 of the document and of\n"
             "every result",
     .kind = Result::kFile,
     .written = Result::kAfterAllOthers},
};

}  // namespace

std::span<const Result> allResults() { return kResults; }

const Result* resultOf(std::string_view option) {
  const auto* found = std::find_if(std::begin(kResults), std::end(kResults),
                                   [&](const Result& result) { return option == result.option; });
  return found == std::end(kResults) ? nullptr : found;
}

}  // namespace quorvane
