// Cost of studies: runs, workers, memory and tables. Prints tables of figures; takes some minutes.

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "study/RunMaker.h"
#include "study/Shard.h"
#include "study/StudyFile.h"
#include "study/StudyFolder.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start) {
  return std::chrono::duration<double>(Clock::now() - start).count();
}

struct Cost {
  double seconds;
  double megabytes;  ///< resident memory of the largest of the program's processes
};

/// Runs quorvane-study; its output is dropped.
Cost costOf(std::vector<std::string> words) {
  words.insert(words.begin(), QUORVANE_STUDY);
  std::vector<char*> argv;
  argv.reserve(words.size() + 1);
  for (std::string& word : words) argv.push_back(word.data());
  argv.push_back(nullptr);
  posix_spawn_file_actions_t actions{};
  ::posix_spawn_file_actions_init(&actions);
  ::posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  pid_t child = 0;
  const auto start = Clock::now();
  const int error = ::posix_spawn(&child, QUORVANE_STUDY, &actions, nullptr, argv.data(), environ);
  ::posix_spawn_file_actions_destroy(&actions);
  if (error != 0) throw std::runtime_error("quorvane-study cannot be started");
  int status = 0;
  rusage usage{};
  ::wait4(child, &status, 0, &usage);
  if (status != 0) throw std::runtime_error("quorvane-study failed");
  constexpr double kilobytes = 1024.0;
  return {.seconds = secondsSince(start), .megabytes = static_cast<double>(usage.ru_maxrss) / kilobytes};
}

class StudyInAFolder {
 public:
  StudyInAFolder(const fs::path& folder, const char* name, const std::string& text)
      : file_(folder / (std::string(name) + ".toml")), results_(folder / name) {
    fs::copy_file(fs::path(QUORVANE_EXAMPLES) / "ising-at-critical.quorvane", folder / "ising.quorvane",
                  fs::copy_options::overwrite_existing);
    std::ofstream(file_) << "document = \"ising.quorvane\"\n" << text;
  }

  const fs::path& file() const { return file_; }
  const fs::path& results() const { return results_; }
  Cost makeAnew(int jobs) const {
    fs::remove_all(results_);
    return costOf({"run", file_, "--results", results_, "-j", std::to_string(jobs)});
  }

 private:
  fs::path file_, results_;
};

/// What a short run costs beyond its sweeps.
void benchRuns(const fs::path& folder) {
  const StudyInAFolder study(folder, "short",
                             "sweeps = 100\nevery = 100\nreplicas = 1000\nobservables = [\"energy\"]\n"
                             "[lattice]\nsides = [16]\n");
  RunMaker maker(readStudy(study.file()), textOf(folder / "ising.quorvane"));
  Study longer = readStudy(study.file());
  longer.sweeps = longer.every = 10'100;
  RunMaker longMaker(longer, textOf(folder / "ising.quorvane"));
  const auto goOn = [] { return true; };
  double least = 1e9, leastLong = 1e9;
  for (std::int64_t run = 0; run < 300; ++run) {
    auto start = Clock::now();
    maker.make(run, goOn);
    least = std::min(least, secondsSince(start));
    if (run % 10 != 0) continue;
    start = Clock::now();
    longMaker.make(run, goOn);
    leastLong = std::min(leastLong, secondsSince(start));
  }
  const double sweeps = (leastLong - least) / 100.0;  // of 100 sweeps
  std::printf("a run of 16 x 16 sites and 100 sweeps: %.3f ms, of which sweeps %.3f ms, the rest %.3f ms\n",
              1e3 * least, 1e3 * sweeps, 1e3 * (least - sweeps));
}

void benchWorkers(const fs::path& folder) {
  const StudyInAFolder study(folder, "workers",
                             "sweeps = 150\nevery = 10\nreplicas = 60\nobservables = [\"energy\"]\n"
                             "[lattice]\nsides = [256]\n");
  double one = 1e9, two = 1e9;
  for (int round = 0; round < 3; ++round) {
    one = std::min(one, study.makeAnew(1).seconds);
    two = std::min(two, study.makeAnew(2).seconds);
  }
  std::printf("60 runs of %.2f s each: two workers make %.2f times the runs a second of one\n", one / 60,
              one / two);
}

void benchMemory(const fs::path& folder) {
  for (const int replicas : {1000, 100'000}) {
    const StudyInAFolder study(folder, "memory",
                               "sweeps = 1\nreplicas = " + std::to_string(replicas) +
                                   "\nobservables = [\"energy\"]\n[lattice]\nsides = [16]\n");
    fs::remove_all(study.results());
    // A part makes no tables, and the part of one is everything.
    const Cost cost =
        costOf({"run", study.file(), "--results", study.results(), "-j", "2", "--shard", "1/1"});
    std::printf("%d runs of one sweep: %.1f s, largest process %.1f MB\n", replicas, cost.seconds,
                cost.megabytes);
  }
}

/// Tables of runs that are made up: ten columns, as if eight workers had made them in turn.
void benchTables(const fs::path& folder) {
  constexpr std::int64_t kPoints = 1000, kReplicas = 1000;
  constexpr std::size_t kColumns = 10, kWorkers = 8;
  const StudyInAFolder study(
      folder, "tables",
      "sweeps = 100\nreplicas = " + std::to_string(kReplicas) +
          "\nobservables = [\"energy\", \"order:0:1\", \"clusters\"]\n[lattice]\n"
          "sides = [16]\n[[vary]]\nrule = \"Unlike spins repel\"\nparameter = { from = 0, "
          "to = 0.999, steps = " +
          std::to_string(kPoints) + " }\n");
  const StudyFolder results = StudyFolder::forStudy(study.file(), study.results());
  std::mt19937 source(7);
  std::normal_distribution<double> normal;
  auto start = Clock::now();
  {
    std::vector<std::unique_ptr<ShardWriter>> shards;
    for (std::size_t k = 0; k < kWorkers; ++k)
      shards.push_back(std::make_unique<ShardWriter>(results.shards(), results.identity()));
    RunResult result;
    result.moments.resize(kColumns);
    for (std::int64_t run = 0; run < kPoints * kReplicas; ++run) {
      for (Moments& moments : result.moments)
        moments = {.mean = normal(source), .square = normal(source), .fourth = normal(source), .tau = 1.5};
      shards[source() % kWorkers]->append(run, bytesOf(result));
    }
  }
  std::printf("10^6 records of ten columns: written in %.1f s", secondsSince(start));
  std::uintmax_t bytes = 0;
  for (const fs::path& shard : results.shardFiles()) bytes += fs::file_size(shard);
  std::printf(", %.0f MB\n", static_cast<double>(bytes) / 1e6);
  const Cost reading = costOf({"status", study.results()});
  std::printf("a start that reads them: %.2f s, %.0f MB of memory\n", reading.seconds, reading.megabytes);
  const Cost cost = costOf({"table", study.results()});
  std::printf("their tables: %.1f s, %.0f MB of memory, runs.csv of %.0f MB\n", cost.seconds, cost.megabytes,
              static_cast<double>(fs::file_size(study.results() / "runs.csv")) / 1e6);
}

int studyBench() {
  std::string name = (fs::temp_directory_path() / "study-bench-XXXXXX").string();
  if (!::mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
  std::setvbuf(stdout, nullptr, _IOLBF, 0);
  benchRuns(name);
  benchWorkers(name);
  benchMemory(name);
  benchTables(name);
  fs::remove_all(name);
  return 0;
}

}  // namespace
}  // namespace quorvane

int main() {
  try {
    return quorvane::studyBench();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "study_bench: %s\n", error.what());
    return 1;
  }
}
