#include <mpi.h>

#include <CLI/CLI.hpp>
#include <iostream>
#include <new>

#include "MpiCrew.h"
#include "batch/Streams.h"
#include "document/ModelDocument.h"
#include "engine/f_ran0.h"
#include "process/StopSignals.h"
#include "study/ForkedCrew.h"
#include "study/StudyActions.h"

namespace quorvane {
namespace {

constexpr const char* kMpiProgram = "quorvane-study-mpi";

constexpr const char* kMpiFooter =
    R"(Rank 0 gives out the runs, and every other rank makes them and keeps them in a
shard of its own:
  mpirun -n 16 quorvane-study-mpi run study.toml
If a rank dies, the job ends; the same command goes on where it was. quorvane-study
has the other commands.)";

struct MpiWords {
  std::filesystem::path study;
  std::optional<std::filesystem::path> results;
};

/// MPI from here to the end of the program.
class Mpi {
 public:
  Mpi(int& argc, char**& argv) {
    MPI_Init(&argc, &argv);
    MPI_Comm_rank(MPI_COMM_WORLD, &rank);
    MPI_Comm_size(MPI_COMM_WORLD, &size);
  }
  ~Mpi() { MPI_Finalize(); }
  Mpi(const Mpi&) = delete;
  Mpi& operator=(const Mpi&) = delete;

  int rank = 0, size = 1;
};

int runAsRank(const Mpi& mpi, const RunOptions& options, Messages& messages) {
  watchStopSignals();
  if (mpi.rank > 0) {
    workAsRank(options.results);
    return kStudyDone;
  }
  const CrewMaker crewFor = [&](const StudyFolder& folder, RunMaker& maker) -> std::unique_ptr<Crew> {
    if (mpi.size == 1) return std::make_unique<ForkedCrew>(1, folder, maker);
    return std::make_unique<MpiCrew>(mpi.size - 1);
  };
  const int status = runStudy(options, crewFor, messages);
  dismissRanks();
  return status;
}

int mpiMain(int argc, char** argv) {
  fillStandardDescriptors();
  failWritesInstead();
  processRandomSource.lookAtPlatform();
  const Mpi mpi(argc, argv);
  Messages messages(std::cerr, kMpiProgram);
  CLI::App app("Makes the runs of a study with the ranks of an MPI job.\n", kMpiProgram);
  MpiWords words;
  CLI::App* run = app.add_subcommand("run", "Makes the runs that are left, and the tables");
  run->add_option("FILE", words.study, "The study, a TOML file")->required()->type_name("");
  run->add_option("--results", words.results,
                  "The folder of the results (default: the study's name with .results)")
      ->type_name("FOLDER");
  app.require_subcommand(1);
  app.set_help_flag("-h,--help", "Prints this and exits");
  app.set_version_flag("--version", std::string(kMpiProgram) + " " + QUORVANE_VERSION,
                       "Prints the version and exits");
  app.footer(kMpiFooter);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    if (mpi.rank > 0) return error.get_exit_code() == 0 ? kStudyDone : kStudyUsage;
    if (error.get_exit_code() == 0) return app.exit(error, std::cout, std::cerr);
    messages.fail(onOneLine(error.what()) + " (--help tells more)");
    return kStudyUsage;
  }
  if (mpi.size == 1 && tasksOfTheAllocation() > 1) {
    messages.fail("there is one rank, but the launcher has started " +
                  std::to_string(tasksOfTheAllocation()) +
                  " tasks: it does not fit this MPI library (with Slurm, try srun --mpi=pmix, or mpirun)");
    return kStudyFailed;
  }
  const RunOptions options{.study = words.study,
                           .results = words.results.value_or(StudyFolder::defaultFor(words.study)),
                           .part = {}};
  return runAsRank(mpi, options, messages);
}

}  // namespace
}  // namespace quorvane

int main(int argc, char** argv) {
  try {
    return quorvane::mpiMain(argc, argv);
  } catch (const std::bad_alloc&) {
    std::cerr << "quorvane-study-mpi: " << quorvane::kOutOfMemory << std::endl;
    return quorvane::kStudyFailed;
  } catch (const std::exception& error) {
    std::cerr << "quorvane-study-mpi: " << error.what() << std::endl;
    return quorvane::kStudyFailed;
  }
}
