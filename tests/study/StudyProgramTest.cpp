#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <fstream>
#include <list>
#include <random>

#include "Process.h"
#include "StudyTestSupport.h"
#include "Waiting.h"
#include "study/RunMaker.h"
#include "study/StudyResults.h"

namespace quorvane {
namespace {

using testing::HasSubstr;
using testing::StartsWith;
namespace fs = std::filesystem;

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kSanitized = true;
#else
constexpr bool kSanitized = false;
#endif

/// Runs that are long enough for most interruptions to come before the end of the study.
constexpr const char* kLongRuns = "sweeps   = 2000";

/// quorvane-study in a folder with the small study and its document.
class StudyProgram : public testing::Test {
 protected:
  StudyProgram() {
    put(folder_ / "ising.quorvane", isingDocument());
    writeStudy(kSmallStudy);
  }

  void writeStudy(std::string text, const std::string& from = "", const std::string& to = "") {
    if (!from.empty()) text.replace(text.find(from), from.size(), to);
    put(study_, text);
  }
  std::vector<std::string> runWords(const std::vector<std::string>& more = {}) const {
    std::vector<std::string> words{"run", study_, "--results", results_};
    words.insert(words.end(), more.begin(), more.end());
    return words;
  }
  static Finished study(const std::vector<std::string>& words) {
    return quorvane::run(QUORVANE_STUDY, words);
  }
  Finished makeAll(const std::vector<std::string>& more = {}) const { return study(runWords(more)); }

  std::string tables() const {
    return contentOf(results_ / "runs.csv") + contentOf(results_ / "points.csv") +
           contentOf(results_ / "series.csv");
  }
  /// What one worker gives in one go in a folder of its own.
  std::string expectedTables() const {
    const fs::path other = folder_ / "expected";
    EXPECT_EQ(study({"run", study_, "--results", other, "-j", "1"}).status, 0);
    std::string text;
    for (const char* name : {"runs.csv", "points.csv", "series.csv"}) text += contentOf(other / name);
    return text;
  }
  std::vector<fs::path> shards() const {
    std::vector<fs::path> files;
    for (const std::string& name : namesIn(results_ / "shards")) files.push_back(results_ / "shards" / name);
    return files;
  }
  static std::string named(const fs::path& file) { return '"' + file.string() + '"'; }
  /// The process is ended and has said one line.
  static void expectLine(const Finished& finished, int status, const std::string& line) {
    EXPECT_EQ(finished.status, status);
    EXPECT_EQ(finished.err, "quorvane-study: " + line + '\n');
  }

  TemporaryFolder folder_;
  fs::path study_ = folder_ / "small.toml", results_ = folder_ / "small.results";
};

TEST_F(StudyProgram, GivesTheSameTablesWithAnyNumberOfWorkers) {
  const std::string expected = expectedTables();
  for (const char* jobs : {"1", "2", "7"}) {
    fs::remove_all(results_);
    const Finished finished = makeAll({"-j", jobs});
    EXPECT_EQ(finished.status, 0) << finished.err;
    EXPECT_EQ(finished.err, "");
    EXPECT_EQ(tables(), expected) << jobs;
  }
}

TEST_F(StudyProgram, GivesTheSameTablesFromPartsInAnyOrder) {
  const std::string expected = expectedTables();
  for (const char* part : {"3/4", "1/4", "4/4", "2/4"}) EXPECT_EQ(makeAll({"--shard", part}).status, 0);
  EXPECT_FALSE(fs::exists(results_ / "runs.csv")) << "a part makes no tables";
  EXPECT_EQ(study({"table", results_}).status, 0);
  EXPECT_EQ(tables(), expected);
}

TEST_F(StudyProgram, HasTheTablesThatItsDefinitionsGive) {
  ASSERT_EQ(makeAll().status, 0);
  const std::string runs = contentOf(results_ / "runs.csv");
  EXPECT_THAT(runs,
              StartsWith("run,replica,seed,imax,jmax,rule Unlike spins repel parameter,type Spin up field,"
                         "energy_mean,energy_square,energy_fourth,energy_tau,order_0_1_mean,"));
  EXPECT_EQ(std::count(runs.begin(), runs.end(), '\n'), 37);
  EXPECT_THAT(runs, HasSubstr("\n25,2,36,8,8,0.7,0.05,"));
  const std::string points = contentOf(results_ / "points.csv");
  EXPECT_THAT(points,
              StartsWith("point,imax,jmax,rule Unlike spins repel parameter,type Spin up field,replicas,"
                         "energy_mean,energy_error,energy_specific_heat,energy_specific_heat_error,"
                         "order_0_1_mean,order_0_1_error,order_0_1_susceptibility,"
                         "order_0_1_susceptibility_error,order_0_1_binder,order_0_1_binder_error,"));
  EXPECT_EQ(std::count(points.begin(), points.end(), '\n'), 13);
  EXPECT_THAT(points, HasSubstr("\n9,12,6,0.76,0.05,3,"));
  const std::string series = contentOf(results_ / "series.csv");
  EXPECT_EQ(std::count(series.begin(), series.end(), '\n'), 1 + 12 * 9);
  EXPECT_THAT(series, StartsWith("point,imax,jmax,rule Unlike spins repel parameter,type Spin up field,sweep,"
                                 "contacts_0_0_mean,contacts_0_0_error,"));
}

TEST_F(StudyProgram, LeavesCellsEmptyThatALatticeHasNot) {
  ASSERT_EQ(makeAll().status, 0);
  // A lattice of 8 x 8 has correlations up to distance 4, one of 12 x 6 up to 3.
  const std::string points = contentOf(results_ / "points.csv");
  const auto cellsOf = [&](int row) {
    std::istringstream lines(points);
    std::string line;
    for (int k = 0; k <= row; ++k) std::getline(lines, line);
    std::vector<std::string> cells;
    std::istringstream in(line + ',');
    for (std::string cell; std::getline(in, cell, ',');) cells.push_back(cell);
    return cells;
  };
  const auto names = cellsOf(0), large = cellsOf(1), small = cellsOf(7);
  const auto place =
      static_cast<std::size_t>(std::find(names.begin(), names.end(), "c_0_4_mean") - names.begin());
  ASSERT_LT(place, names.size());
  EXPECT_EQ(names[place - 2], "c_0_3_mean");
  EXPECT_NE(large.at(place), "");
  EXPECT_EQ(small.at(place), "");
  EXPECT_NE(small.at(place - 2), "");
  EXPECT_EQ(names.size(), small.size());
}

TEST_F(StudyProgram, GoesOnWithMoreReplicas) {
  writeStudy(kSmallStudy, "replicas = 3", "replicas = 5");
  const std::string expected = expectedTables();
  writeStudy(kSmallStudy);
  ASSERT_EQ(makeAll().status, 0);
  const auto before = shards();
  writeStudy(kSmallStudy, "replicas = 3", "replicas = 5");
  ASSERT_EQ(makeAll().status, 0);
  for (const fs::path& shard : before) EXPECT_TRUE(fs::exists(shard));
  EXPECT_EQ(tables(), expected);
  writeStudy(kSmallStudy, "replicas = 3", "replicas = 4");
  expectLine(makeAll(), 1, named(results_) + ": holds results of 5 replicas, and the study has 4");
}

/// The processes that have not ended and whose parent is this one. Others end meanwhile, so that reading of
/// them may fail.
std::vector<pid_t> childrenOf(pid_t parent) {
  std::vector<pid_t> children;
  for (const std::string& name : namesIn("/proc")) {
    if (name.find_first_not_of("0123456789") != std::string::npos) continue;
    std::ifstream status("/proc/" + name + "/status");
    bool isChild = false, hasEnded = false;
    for (std::string line; std::getline(status, line);) {
      isChild |= line == "PPid:\t" + std::to_string(parent);
      hasEnded |= line.starts_with("State:\tZ");
    }
    if (isChild && !hasEnded) children.push_back(std::stoi(name));
  }
  return children;
}

/// Kills one of the workers; false if there is none.
bool killAWorker(const Process& process, std::mt19937& source) {
  const auto workers = childrenOf(process.id());
  return !workers.empty() && ::kill(workers[source() % workers.size()], SIGKILL) == 0;
}

/// A run that three kills hit in one process would stand in the table of failed ones.
constexpr int kMostKilledWorkers = 2;

/// Workers whose parent was killed become children of this process.
class Orphans {
 public:
  Orphans() { ::prctl(PR_SET_CHILD_SUBREAPER, 1); }
  /// They end by themselves; until then they may make files.
  ~Orphans() {
    while (::waitpid(-1, nullptr, 0) > 0) continue;
    ::prctl(PR_SET_CHILD_SUBREAPER, 0);
  }
  Orphans(const Orphans&) = delete;
  Orphans& operator=(const Orphans&) = delete;
};

TEST_F(StudyProgram, KilledAtRandomMomentsGivesTheSameTables) {
  const std::string expected = expectedTables();
  const Orphans orphans;
  std::mt19937 source(3);
  constexpr int kills = kSanitized ? 20 : 100;
  constexpr unsigned shortest = 1000;
  unsigned longest = shortest;
  int killed = 0, finishedAfterKills = 0;
  bool inTheMiddle = false;
  const auto hit = [&] {
    ++killed;
    inTheMiddle |= fs::exists(results_ / "shards") && !shards().empty();
  };
  for (int tries = 0; (killed < kills || finishedAfterKills == 0) && tries < 10'000; ++tries) {
    Process process(QUORVANE_STUDY, runWords({"-j", "2"}));
    // Now a worker, now the process that gives out the runs.
    int workersKilled = 0;
    while (!process.waitFor(std::chrono::microseconds(source() % longest))) {
      if (source() % 2 == 0 && workersKilled < kMostKilledWorkers && killAWorker(process, source)) {
        ++workersKilled;
        hit();
        continue;
      }
      process.kill();
      break;
    }
    const Finished finished = process.wait();
    if (finished.status == -SIGKILL) {
      hit();
      // At any speed of the machine there are kills from the beginning of a study to its end.
      longest += longest / 4;
      continue;
    }
    ASSERT_EQ(finished.status, 0) << finished.err;
    ASSERT_EQ(tables(), expected);
    if (inTheMiddle) ++finishedAfterKills;
    // Workers without a parent may still make files in the old folder.
    results_ = folder_ / ("results-" + std::to_string(tries));
    longest = shortest;
    inTheMiddle = false;
  }
  EXPECT_GE(killed, kills);
  EXPECT_GE(finishedAfterKills, 1);
  EXPECT_EQ(makeAll().status, 0);
  EXPECT_EQ(tables(), expected);
}

TEST_F(StudyProgram, AKilledWorkerCostsItsRunOnly) {
  writeStudy(kSmallStudy, "sweeps   = 40", kLongRuns);
  const std::string expected = expectedTables();
  std::mt19937 source(8);
  int killed = 0;
  for (int tries = 0; killed <= kMostKilledWorkers && tries < 1000; ++tries) {
    results_ = folder_ / ("results-" + std::to_string(tries));
    Process process(QUORVANE_STUDY, runWords({"-j", "2"}));
    int killedHere = 0;
    while (killedHere < kMostKilledWorkers && !process.waitFor(std::chrono::microseconds(source() % 40'000)))
      if (killAWorker(process, source)) ++killedHere;
    const Finished finished = process.wait();
    ASSERT_EQ(finished.status, 0) << finished.err;
    ASSERT_EQ(tables(), expected);
    killed += killedHere;
  }
  EXPECT_GT(killed, kMostKilledWorkers);
}

TEST_F(StudyProgram, ARunThatFailsThreeTimesStandsInATable) {
  if (kSanitized) GTEST_SKIP() << "sanitizers need more memory than the limit of this test";
  // The series of a run needs more memory than there is; the others of the study need little.
  writeStudy(kSmallStudy, "sweeps   = 40", "sweeps   = 1000000000");
  writeStudy(contentOf(study_), "every    = 5", "every    = 1");
  writeStudy(contentOf(study_), "replicas = 3", "replicas = 1");
  const std::string command = "ulimit -v 400000; exec " + std::string(QUORVANE_STUDY) + " run " +
                              study_.string() + " --results " + results_.string() + " -j 1";
  const Finished finished = quorvane::run("/bin/sh", {"-c", command});
  expectLine(finished, 1, "12 runs failed: " + named(results_ / "failed.csv") + " has the reasons");
  const std::string failed = contentOf(results_ / "failed.csv");
  EXPECT_THAT(failed,
              StartsWith("run,replica,seed,imax,jmax,rule Unlike spins repel parameter,type Spin up field,"
                         "reason\n0,0,11,8,8,0.7,0,out of memory\n1,0,12,8,8,0.7,0.05,out of memory\n"));
  EXPECT_EQ(std::count(failed.begin(), failed.end(), '\n'), 13);
}

TEST_F(StudyProgram, StoppedByASignalKeepsWhatIsMade) {
  writeStudy(kSmallStudy, "sweeps   = 40", kLongRuns);
  const std::string expected = expectedTables();
  for (const int signal : {SIGINT, SIGTERM}) {
    Finished finished;
    // A study may be over before its signal comes.
    for (int tries = 0; tries < 20; ++tries) {
      fs::remove_all(results_);
      Process process(QUORVANE_STUDY, runWords({"-j", "2"}));
      ASSERT_TRUE(waitUntil([&] { return fs::exists(results_ / "shards") && !shards().empty(); }));
      process.signal(signal);
      finished = process.wait();
      if (finished.status == -signal) break;
      ASSERT_EQ(finished.status, 0) << finished.err;
      ASSERT_EQ(tables(), expected);
    }
    EXPECT_EQ(finished.status, -signal);
    EXPECT_THAT(finished.err, StartsWith("quorvane-study: stopped with "));
    EXPECT_THAT(finished.err, HasSubstr(" of 36 runs made; the same command goes on\n"));
    EXPECT_FALSE(fs::exists(results_ / "runs.csv"));
    EXPECT_EQ(makeAll().status, 0);
    EXPECT_EQ(tables(), expected);
  }
}

TEST_F(StudyProgram, RefusesAFolderOfAnotherStudy) {
  ASSERT_EQ(makeAll().status, 0);
  const std::string before = tables();
  writeStudy(kSmallStudy, "discard  = 10", "discard  = 15");
  expectLine(makeAll(), 1,
             named(results_) + ": holds results of another study: \"discard 10\" there, \"discard 15\" here");
  writeStudy(kSmallStudy);
  put(folder_ / "ising.quorvane", isingDocument() + "\n");
  expectLine(makeAll(), 1,
             named(results_) +
                 ": holds results of another document: \"ising.quorvane\" was changed since, or is "
                 "another file");
  EXPECT_EQ(tables(), before);
}

TEST_F(StudyProgram, RefusesAFolderOfAnotherVersion) {
  ASSERT_EQ(makeAll().status, 0);
  std::string text = contentOf(results_ / "study.json");
  const std::string here = "\"version\": \"" + std::string(QUORVANE_VERSION) + '"';
  text.replace(text.find(here), here.size(), "\"version\": \"0.0.9\"");
  put(results_ / "study.json", text);
  const std::string line = named(results_) +
                           ": its results were made by version 0.0.9, and this is version " +
                           QUORVANE_VERSION + "; use another folder, or that version";
  expectLine(makeAll(), 1, line);
  expectLine(study({"table", results_}), 1, line);
  put(results_ / "study.json", std::string("{") + here + "}");
  expectLine(study({"status", results_}), 1, named(results_ / "study.json") + ": is damaged");
  put(results_ / "study.json", "[]");
  expectLine(study({"status", results_}), 1, named(results_ / "study.json") + ": is damaged");
}

TEST_F(StudyProgram, ManyMayBeginOneFolderAtTheSameTime) {
  const std::string expected = expectedTables();
  constexpr int rounds = kSanitized ? 5 : 20;
  for (int round = 0; round < rounds; ++round) {
    fs::remove_all(results_);
    std::list<Process> parts;
    for (int part = 1; part <= 8; ++part)
      parts.emplace_back(QUORVANE_STUDY, runWords({"-j", "1", "--shard", std::to_string(part) + "/8"}));
    for (Process& part : parts) {
      const Finished finished = part.wait();
      EXPECT_EQ(finished.status, 0) << finished.err;
    }
    ASSERT_EQ(study({"table", results_}).err, "");
    ASSERT_EQ(tables(), expected);
  }
}

TEST_F(StudyProgram, AStudyThatIsRefusedLeavesNoFolder) {
  writeStudy(kSmallStudy, "Unlike spins repel", "Unlike spins repell");
  EXPECT_EQ(makeAll().status, 1);
  EXPECT_FALSE(fs::exists(results_));
  EXPECT_EQ(study({"command", study_, "--run", "0"}).status, 1);
  EXPECT_EQ(study({"slurm", study_, "--tasks", "2"}).status, 1);
}

TEST_F(StudyProgram, AFolderWithoutRunsIsMadeAnew) {
  ASSERT_EQ(makeAll({"--shard", "37/37"}).status, 0);
  writeStudy(kSmallStudy, "discard  = 10", "discard  = 15");
  EXPECT_EQ(makeAll().status, 0);
  EXPECT_EQ(tables(), expectedTables());
}

TEST_F(StudyProgram, TablesOfAPartSaySo) {
  ASSERT_EQ(makeAll({"--shard", "1/3"}).status, 0);
  expectLine(study({"table", results_}), 0, "12 of 36 runs are made so far");
}

TEST_F(StudyProgram, NamesEveryBuildThatMadeRuns) {
  ASSERT_EQ(makeAll({"--shard", "1/3"}).status, 0);
  std::string text = contentOf(results_ / "study.json");
  const auto place = text.find("\"c_library\": \"") + 14;
  text.replace(place, text.find('"', place) - place, "another 1.0");
  put(results_ / "study.json", text);
  expectLine(makeAll(), 0, named(results_) + ": runs of 2 builds of the program, which study.json names");
  EXPECT_THAT(contentOf(results_ / "study.json"), HasSubstr("another 1.0"));
  EXPECT_EQ(tables(), expectedTables());
}

TEST_F(StudyProgram, CheckFindsAChangedStudyOrDocument) {
  ASSERT_EQ(makeAll({"--shard", "1/3"}).status, 0);
  put(results_ / "study.toml", contentOf(results_ / "study.toml") + "# later\n");
  expectLine(study({"check", results_}), 1,
             named(results_ / "study.toml") + ": was changed: its SHA-256 is not that in study.json");
}

/// What quorvane-study says for a user who may read everything here and write nothing.
Finished asAReader(const std::string& words) {
  const std::string user = ::geteuid() == 0 ? "setpriv --reuid 23456 --regid 23456 --clear-groups " : "";
  return quorvane::run("/bin/sh", {"-c", user + QUORVANE_STUDY + " " + words});
}

TEST_F(StudyProgram, AFolderThatMayOnlyBeReadIsReadAndOtherwiseToldInOneLine) {
  if (asAReader("--version").status != 0) GTEST_SKIP() << "another user may not run the program here";
  ASSERT_EQ(makeAll({"--shard", "1/3"}).status, 0);
  const auto readable = fs::perms::owner_read | fs::perms::owner_exec | fs::perms::group_read |
                        fs::perms::group_exec | fs::perms::others_read | fs::perms::others_exec;
  for (const fs::path& folder : {folder_.path(), results_, results_ / "shards"})
    fs::permissions(folder, readable);
  const std::string results = results_.string();
  EXPECT_EQ(asAReader("status " + results).status, 0);
  EXPECT_EQ(asAReader("check " + results).status, 0);
  const std::string denied = "quorvane-study: \"" + results;
  for (const std::string& words : {"table " + results, "run " + study_.string() + " --results " + results}) {
    const Finished finished = asAReader(words);
    EXPECT_EQ(finished.status, 1) << words;
    EXPECT_THAT(finished.err, HasSubstr(denied)) << words;
    EXPECT_THAT(finished.err, testing::EndsWith(": Permission denied\n")) << words;
  }
  fs::permissions(folder_.path(), fs::perms::owner_all);
  fs::permissions(results_, fs::perms::owner_all);
  fs::permissions(results_ / "shards", fs::perms::owner_all);
}

TEST_F(StudyProgram, AFolderThatCannotBeMadeIsToldInOneLine) {
  expectLine(study({"run", study_, "--results", "/proc/study"}), 1,
             "\"/proc/study\": No such file or directory");
}

TEST_F(StudyProgram, RefusesAFolderWithOtherFiles) {
  fs::create_directory(results_);
  put(results_ / "thesis.tex", "x");
  expectLine(makeAll(), 1,
             named(results_) + ": holds other files, such as \"thesis.tex\", and no study.json");
  expectLine(study({"status", folder_.path()}), 1,
             named(folder_.path()) + ": is no folder of a study's results (it has no study.json)");
}

TEST_F(StudyProgram, MakesDamagedAndDeletedRecordsAgain) {
  ASSERT_EQ(makeAll({"-j", "2"}).status, 0);
  const std::string expected = tables();
  // One worker may have made nearly all runs, and damage in the last record of a shard looks like an
  // unfinished one.
  const auto made = shards();
  const fs::path shard = *std::max_element(made.begin(), made.end(), [](const auto& a, const auto& b) {
    return fs::file_size(a) < fs::file_size(b);
  });
  std::string bytes = contentOf(shard);
  bytes[bytes.size() / 2] = static_cast<char>(bytes[bytes.size() / 2] ^ 1);
  put(shard, bytes);
  const std::string damage = named(shard) + ": is damaged in 1 place; the runs there are made again";
  const Finished checked = study({"check", results_});
  EXPECT_EQ(checked.status, 1);
  EXPECT_EQ(checked.err, "quorvane-study: 35 of 36 runs are made so far\nquorvane-study: " + damage + '\n');
  const Finished again = makeAll();
  EXPECT_EQ(again.status, 0);
  EXPECT_THAT(again.err, HasSubstr(damage));
  EXPECT_EQ(tables(), expected);
  fs::remove(shards().back());
  EXPECT_EQ(makeAll().status, 0);
  EXPECT_EQ(tables(), expected);
}

TEST_F(StudyProgram, RefusesTwoRecordsOfARunThatDiffer) {
  ASSERT_EQ(makeAll({"-j", "1"}).status, 0);
  const StudyFolder folder = StudyFolder::open(results_);
  RunResult result;
  result.moments.resize(3);
  ShardWriter(folder.shards(), folder.identity()).append(7, bytesOf(result));
  const Finished finished = study({"table", results_});
  EXPECT_EQ(finished.status, 1);
  EXPECT_THAT(finished.err, StartsWith("quorvane-study: run 7 was made twice and differs: \""));
}

TEST_F(StudyProgram, CheckFindsARunThatGivesAnotherResultNow) {
  ASSERT_EQ(makeAll({"--shard", "1/36"}).status, 0);
  const StudyFolder folder = StudyFolder::open(results_);
  RunResult result;
  result.moments.resize(RunMaker(folder.study(), folder.documentText()).shapeOf(7).columns.size());
  ShardWriter(folder.shards(), folder.identity()).append(7, bytesOf(result));
  const Finished finished = study({"check", results_, "--again", "2"});
  EXPECT_EQ(finished.status, 1);
  EXPECT_THAT(finished.err, HasSubstr("quorvane-study: run 7 made again differs from its record in \"" +
                                      results_.string()));
}

TEST_F(StudyProgram, RefusesARecordWithOtherColumns) {
  ASSERT_EQ(makeAll({"--shard", "1/36"}).status, 0);
  const StudyFolder folder = StudyFolder::open(results_);
  RunResult result;
  result.moments.resize(2);
  ShardWriter(folder.shards(), folder.identity()).append(7, bytesOf(result));
  EXPECT_THAT(study({"table", results_}).err, HasSubstr(": run 7 has other columns\n"));
}

TEST_F(StudyProgram, TakesTheSameRunFromTwoShards) {
  ASSERT_EQ(makeAll({"-j", "1"}).status, 0);
  const std::string expected = tables();
  fs::copy_file(shards().at(0), results_ / "shards" / "copied.shard");
  EXPECT_EQ(study({"table", results_}).status, 0);
  EXPECT_EQ(tables(), expected);
}

TEST_F(StudyProgram, TellsAboutAFullDiskAndGoesOn) {
  const std::string expected = expectedTables();
  const std::string command = "ulimit -f 8; exec " + std::string(QUORVANE_STUDY) + " run " + study_.string() +
                              " --results " + results_.string() + " -j 1";
  fs::create_directories(results_);
  // The folder is made with enough space.
  ASSERT_EQ(makeAll({"--shard", "36/36"}).status, 0);
  const Finished finished = quorvane::run("/bin/sh", {"-c", command});
  EXPECT_EQ(finished.status, 1);
  EXPECT_THAT(finished.err, testing::MatchesRegex("quorvane-study: \".*\\.shard\": File too large\n"));
  EXPECT_EQ(makeAll().status, 0);
  EXPECT_EQ(tables(), expected);
}

TEST_F(StudyProgram, PrintsStatusAndChecks) {
  ASSERT_EQ(makeAll({"--shard", "1/3", "-j", "1"}).status, 0);
  EXPECT_EQ(study({"status", results_}).out,
            "12 of 36 runs made, 0 failed, 24 left\n12 points, 3 replicas, 1 shard\n");
  EXPECT_EQ(study({"check", results_, "--again", "4"}).out,
            "read the records of 12 runs, and made 4 runs again with the same result\n");
}

TEST_F(StudyProgram, PrintsTheCommandOfARun) {
  EXPECT_EQ(study({"command", study_, "--run", "33"}).out,
            "quorvane-batch " + (folder_ / "ising.quorvane").string() +
                " --sweeps 40 --every 5 --seed 44 --set 'rule Unlike spins repel parameter=0.76' --set 'type "
                "Spin up "
                "field=0.05' --remake 12x6 --fill 'Spin up=0.75,Spin down=0.25' --observables "
                "energy,order:0:1,correlation,kept --measure run-33.csv\n");
  // The study in a folder of results has its document beside it under another name.
  ASSERT_EQ(makeAll({"--shard", "1/36"}).status, 0);
  EXPECT_THAT(study({"command", results_ / "study.toml", "--run", "33"}).out,
              StartsWith("quorvane-batch " + (results_ / "document.quorvane").string() + " --sweeps 40 "));
  expectLine(study({"command", study_, "--run", "36"}), 1, "--run: 36 is not below 36, the number of runs");
}

TEST_F(StudyProgram, PrintsAScriptForSlurm) {
  const Finished finished = study({"slurm", study_, "--results", "there", "--tasks", "5"});
  EXPECT_EQ(finished.status, 0);
  EXPECT_THAT(finished.out, HasSubstr("--shard \"$SLURM_ARRAY_TASK_ID/5\""));
  EXPECT_THAT(finished.out, HasSubstr("quorvane-study table there\n"));
}

TEST_F(StudyProgram, FailsIfItsHelpCannotBeWritten) {
  for (const char* option : {"--help", "--version"})
    EXPECT_EQ(
        quorvane::run("/bin/sh", {"-c", std::string(QUORVANE_STUDY) + " " + option + " >/dev/full"}).status,
        1);
}

TEST_F(StudyProgram, RefusesWrongUsageInOneLine) {
  EXPECT_EQ(study({}).status, 2);
  EXPECT_EQ(study({"fly"}).status, 2);
  expectLine(makeAll({"-j", "0"}), 2,
             "--jobs: \"0\" is not a whole number from 1 to 1024 (--help tells more)");
  expectLine(makeAll({"--shard", "4/3"}), 2,
             "--shard: \"4/3\" is not K/N with K from 1 to N, such as 3/40 (--help tells more)");
  for (const char* word : {"", "/", "3", "3/", "/4", "0/4", "3/4/5", "3/x", "x/4", "-1/4"})
    expectLine(makeAll({"--shard", word}), 2,
               "--shard: \"" + std::string(word) +
                   "\" is not K/N with K from 1 to N, such as 3/40 (--help tells more)");
  for (const char* word : {"", "x", "5x", "2147483648", "99999999999999999999"})
    expectLine(study({"check", results_, "--again", word}), 2,
               "--again: \"" + std::string(word) +
                   "\" is not a whole number from 0 to 2147483647 (--help tells more)");
  writeStudy(kSmallStudy, "[12, 6]", "[12, 600]");
  expectLine(study({"slurm", study_, "--tasks", "2"}), 1,
             named(study_) + ": line 10: 600 is not from 1 to 256");
  expectLine(makeAll(), 1, named(study_) + ": line 10: 600 is not from 1 to 256");
}

}  // namespace
}  // namespace quorvane
