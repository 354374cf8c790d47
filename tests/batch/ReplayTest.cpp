#include <sys/stat.h>

#include <csignal>

#include "FileSizeLimit.h"
#include "RecordedRun.h"
#include "batch/Results.h"
#include "record/Record.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

/// Replays with temporary files in a folder of the test.
class Replay : public RecordedRun {
 protected:
  Replay() { fs::create_directory(temporary_); }
  ~Replay() override { EXPECT_THAT(namesIn(temporary_), IsEmpty()) << "temporary files are left"; }

  /// Of env, which becomes the runner.
  static std::vector<std::string> wordsToReplay(const fs::path& record, const fs::path& temporary) {
    return {"TMPDIR=" + temporary.native(), QUORVANE_BATCH, "--replay", record};
  }
  Finished replayed() const { return run("/usr/bin/env", wordsToReplay(record_, temporary_)); }

  void expectRefused(const std::string& line) const {
    const Finished finished = replayed();
    EXPECT_EQ(finished.status, 1);
    EXPECT_THAT(finished.out, IsEmpty());
    EXPECT_EQ(finished.err, "quorvane-batch: " + line + "\n");
  }
  /// Replays a record with one field changed.
  void expectRefusedWith(const char* pointer, const json& value, const std::string& why) const {
    json record = recorded();
    const json before = record;
    record[json::json_pointer(pointer)] = value;
    change(record);
    expectRefused(named(record_) + ": " + why);
    change(before);
  }
  /// The line about a result of the record that is the same.
  static std::string same(const json& output) {
    const std::string beginning = std::string(output["sha256"]).substr(0, 12);
    return "same: " + std::string(output["option"]) + ' ' + named(std::string(output["path"])) +
           ": recorded " + beginning + ", now " + beginning + '\n';
  }

  const fs::path temporary_ = folder_ / "tmp";
};

TEST_F(Replay, OfEveryKindOfResultIsTheSame) {
  makeRun(everything());
  const json outputs = recorded()["outputs"];
  const Finished finished = replayed();
  EXPECT_EQ(finished.status, 0);
  EXPECT_THAT(finished.err, IsEmpty());
  EXPECT_EQ(finished.out, same(outputs[0]) + same(outputs[1]) + same(outputs[2]) + same(outputs[3]) +
                              "same: --frames " + named(folder_ / "film") + ": 4 frames\n" +
                              same(outputs[5]));
}

TEST_F(RecordedRun, HasEveryResultAndReplaysIt) {
  for (const Result& result : allResults()) {
    if (result.written == Result::kAfterAllOthers) continue;
    const std::string target = (folder_ / ("result" + std::string(result.option))).string();
    std::vector<std::string> arguments = {document_, "--sweeps",    "3",   "--record",
                                          record_,   result.option, target};
    if (result.target == &BatchOptions::measure)
      arguments.insert(arguments.end(), {"--observables", "counts"});
    makeRun(arguments);
    ASSERT_EQ(recorded()["outputs"].size(), 1u) << result.option;
    EXPECT_EQ(recorded()["outputs"][0]["option"], result.option);
    const Finished again = runBatchProgram({"--replay", record_});
    EXPECT_EQ(again.status, 0) << again.out;
    EXPECT_THAT(again.out, StartsWith("same: " + std::string(result.option) + ' ' + named(target)));
  }
}

TEST_F(Replay, OfResultsOnStandardOutputIsTheSame) {
  for (const char* option : {"--output", "--populations", "--picture"}) {
    makeRun({document_, "--remake", "32x24", "--sweeps", "30", option, "-", "--record", record_});
    const Finished finished = replayed();
    EXPECT_EQ(finished.status, 0) << finished.err;
    EXPECT_THAT(finished.out, StartsWith("same: " + std::string(option) + " standard output: recorded "));
  }
}

TEST_F(Replay, LeavesTheOriginalResultsAlone) {
  makeRun(everything());
  for (const std::string& file : {output_, populations_, picture_}) put(file, "mine");
  fs::remove_all(folder_ / "film");
  const auto before = namesIn(folder_.path());
  const std::string record = contentOf(record_);
  EXPECT_EQ(replayed().status, 0);
  EXPECT_EQ(namesIn(folder_.path()), before);
  for (const std::string& file : {output_, populations_, picture_}) EXPECT_EQ(contentOf(file), "mine");
  EXPECT_EQ(contentOf(record_), record);
}

TEST_F(Replay, TellsOneChangedByteOfTheDocumentBeforeItRuns) {
  makeRun(everything());
  json record = recorded();
  // Without the comparison of hashes this would never end.
  record["sweeps"] = {{"asked", 9'000'000'000'000'000'000}, {"done", 9'000'000'000'000'000'000}};
  change(record);
  std::string document = contentOf(document_);
  const std::string then = fingerprintOf(document).sha256.substr(0, 12);
  document[document.size() / 2] = document[document.size() / 2] == '0' ? '1' : '0';
  put(document_, document);
  expectRefused(named(document_) + ": has changed since the run: its SHA-256 begins with " +
                fingerprintOf(document).sha256.substr(0, 12) + ", recorded is " + then);
}

TEST_F(Replay, TellsAMissingDocumentBeforeItRuns) {
  makeRun(everything());
  fs::remove(document_);
  expectRefused(named(document_) + ": the document of the record cannot be found: No such file or directory");
}

TEST_F(Replay, TellsThatADocumentFromStandardInputCannotBeFound) {
  ASSERT_EQ(
      runBatchProgram({"-", "--sweeps", "2", "--output", output_, "--record", record_}, contentOf(document_))
          .status,
      0);
  expectRefused(named(record_) + ": the document was read from standard input, so it cannot be found");
}

TEST_F(Replay, FindsTheDocumentBesideTheRecordInAMovedFolder) {
  const std::string command = "cd " + folder_.path().string() +
                              " && mkdir old && cp in.quorvane old && cd old && " QUORVANE_BATCH
                              " in.quorvane --sweeps 3 --output out --record r.json && cd .. && mv old new";
  ASSERT_EQ(std::system(command.c_str()), 0);
  fs::remove(document_);
  EXPECT_EQ(runBatchProgram({"--replay", folder_ / "new/r.json"}).status, 0);
}

TEST_F(Replay, PrefersTheDocumentWithTheRecordedHash) {
  makeRun(everything());
  fs::create_directory(folder_ / "kept");
  fs::copy(document_, folder_ / "kept/in.quorvane");
  fs::copy(record_, folder_ / "kept/r.json");
  put(document_, "another");
  EXPECT_EQ(runBatchProgram({"--replay", folder_ / "kept/r.json"}).status, 0);
}

TEST_F(Replay, TellsResultsThatAreDifferent) {
  makeRun(everything());
  json record = recorded();
  const std::string other = fingerprintOf("other").sha256;
  const std::string measured = record["outputs"][2]["sha256"],
                    frame = record["outputs"][4]["frames"][1]["sha256"];
  record["outputs"][2]["sha256"] = other;
  record["outputs"][4]["frames"][1]["sha256"] = other;
  change(record);
  const Finished finished = replayed();
  EXPECT_EQ(finished.status, 1);
  EXPECT_THAT(finished.err, IsEmpty());
  EXPECT_EQ(finished.out, same(record["outputs"][0]) + same(record["outputs"][1]) + "different: --measure " +
                              named(folder_ / "measured.csv") + ": recorded " + other.substr(0, 12) +
                              ", now " + measured.substr(0, 12) + '\n' + same(record["outputs"][3]) +
                              "different: --frames " + named(folder_ / "film") +
                              ", \"frame-000001.png\": recorded " + other.substr(0, 12) + ", now " +
                              frame.substr(0, 12) + '\n' + same(record["outputs"][5]));
}

TEST_F(Replay, TellsAnotherNumberOfFramesOrDraws) {
  makeRun(everything());
  json record = recorded();
  const std::int64_t draws = record["drawsMade"];
  record["outputs"][4]["frames"].erase(3);
  record["drawsMade"] = draws + 1;
  change(record);
  const Finished finished = replayed();
  EXPECT_EQ(finished.status, 1);
  EXPECT_THAT(finished.out, HasSubstr("different: --frames " + named(folder_ / "film") +
                                      ": recorded 3 frames, now 4 frames\n"));
  EXPECT_THAT(finished.out, EndsWith("different: random numbers drawn: recorded " +
                                     std::to_string(draws + 1) + ", now " + std::to_string(draws) + '\n'));
}

TEST_F(Replay, OfAnotherSeedIsDifferent) {
  makeRun(everything());
  json record = recorded();
  record["seed"] = 6;
  change(record);
  const Finished finished = replayed();
  EXPECT_EQ(finished.status, 1);
  EXPECT_THAT(finished.out, Not(HasSubstr("same: --output")));
  EXPECT_THAT(finished.out, HasSubstr("different: --output"));
}

TEST_F(Replay, OfARunThatASignalStoppedMakesTheSweepsThatWereDone) {
  // With more than a million frames to come, whose names are longer.
  BatchProcess process(everything("90000000"));
  ASSERT_TRUE(waitUntil([&] { return fs::exists(folder_ / "film/frame-00000003.png"); }));
  process.signal(SIGINT);
  EXPECT_EQ(process.wait().status, -SIGINT);
  const json record = recorded();
  EXPECT_EQ(record["sweeps"]["asked"], 90000000);
  EXPECT_GE(record["sweeps"]["done"], 21);
  EXPECT_EQ(rowsOf(contentOf(populations_)).back().front(), record["sweeps"]["done"]);
  const Finished finished = replayed();
  EXPECT_EQ(finished.status, 0) << finished.out << finished.err;
  EXPECT_THAT(finished.out, Not(HasSubstr("different")));
}

TEST_F(Replay, OfAnotherBuildRunsWithANoteThatNamesBoth) {
  makeRun(everything());
  json record = recorded();
  const Program now = thisProgram();
  record["program"]["version"] = "0.0.1\n\x1b[2J";
  record["program"]["commit"] = "0123";
  change(record);
  const Finished finished = replayed();
  EXPECT_EQ(finished.status, 0);
  EXPECT_EQ(finished.err,
            "quorvane-batch: recorded by quorvane-batch 0.0.1\\n\\x1b[2J (commit 0123), replayed by "
            "quorvane-batch " +
                now.version + " (commit " + now.commit + ")\n");
}

TEST_F(Replay, RefusesWhatIsNoRecord) {
  expectRefused(named(record_) + ": No such file or directory");
  put(record_, "");
  expectRefused(named(record_) + ": line 1, column 1: ends too early for JSON");
  put(record_, "sweep,energy\n");
  expectRefused(named(record_) + ": line 1, column 1: is no JSON");
  put(record_, "{}");
  expectRefused(named(record_) + ": is no record of a run (its format is not quorvane-record)");
  fs::remove(record_);
  ASSERT_EQ(::mkfifo(record_.c_str(), 0600), 0);
  expectRefused(named(record_) + ": is not a regular file");
}

TEST_F(Replay, RefusesARecordThatIsDamagedNewerOrAsksForWhatCannotBe) {
  makeRun(everything());
  expectRefusedWith("/formatVersion", 2, "is a record of format 2, and this program reads only 1");
  expectRefusedWith("/seed", 0, "field seed: is no whole number from 1 to 2147483647");
  expectRefusedWith("/scale", 33, "field scale: is more than 32");
  expectRefusedWith("/outputs", json::array(), "has no results");
  expectRefusedWith("/outputs/0/option", "--no\x1b",
                    "has a result of the option \"--no\\x1b\", which is not known");
  expectRefusedWith("/outputs/0/option", "--record",
                    "has a result of the option \"--record\", which is not known");
  expectRefusedWith("/outputs/0/option", "--picture", "has two results of --picture");
  expectRefusedWith("/outputs/0/option", "--frames", "has a file as the result of --frames");
  expectRefusedWith("/outputs/4/option", "--output", "has frames as the result of --output");
  expectRefusedWith("/observables", json(), "has a result of --measure and no observables");
  expectRefusedWith("/remake", "0x0",
                    "--remake: \"0x0\" is not IxJ with sides from 1 to 256, such as 128x64");
  expectRefusedWith("/fill", "x", "--fill: \"x\" is not NAME=SHARE");
  expectRefusedWith("/extra\n", 1, "field extra\\n: is not known to this version");
}

TEST_F(Replay, RefusesInOneLineWhatTheModelDoesNotHave) {
  makeRun(everything());
  json record = recorded();
  record["observables"] = "help";
  change(record);
  EXPECT_THAT(replayed().err, AllOf(StartsWith("quorvane-batch: --observables: "), HasSubstr("help")));
  record["observables"] = "energy,kept";
  record["settings"] = {"rule Nothing disabled=1"};
  change(record);
  const Finished finished = replayed();
  EXPECT_EQ(finished.status, 1);
  EXPECT_THAT(finished.err, StartsWith("quorvane-batch: --set: "));
  EXPECT_EQ(std::count(finished.err.begin(), finished.err.end(), '\n'), 1);
}

TEST_F(Replay, UsesNoNameOfARecordAsAPath) {
  makeRun(everything());
  json record = recorded();
  const std::string victim = (folder_ / "victim").string();
  for (json& output : record["outputs"]) output["path"] = victim;
  record["outputs"][4]["frames"][0]["name"] = "../victim";
  record["outputs"][4]["frames"][1]["name"] = victim;
  change(record);
  EXPECT_EQ(replayed().status, 0);
  EXPECT_FALSE(fs::exists(victim));
}

TEST_F(Replay, ReadsOnlyARegularFileAsTheDocument) {
  makeRun(everything());
  for (const char* device : {"/dev/zero", "/dev/stdin", "/proc/self/fd/0"}) {
    json record = recorded();
    record["document"]["path"] = device;
    change(record);
    const Finished finished = replayed();
    EXPECT_EQ(finished.status, 1);
    EXPECT_EQ(std::count(finished.err.begin(), finished.err.end(), '\n'), 1) << finished.err;
  }
}

TEST_F(Replay, SaysInOneLineThatThereIsNoTemporaryFolder) {
  makeRun(everything());
  const fs::path missing = folder_ / "missing";
  const Finished finished = run("/usr/bin/env", wordsToReplay(record_, missing));
  EXPECT_EQ(finished.status, 1);
  EXPECT_EQ(finished.err, "quorvane-batch: " + named(missing) +
                              ": no temporary folder can be made there: No such file or directory\n");
}

TEST_F(Replay, SaysInOneLineThatTheTemporaryFolderIsFull) {
  makeRun(everything("700"));
  // For the copy of the document, or for the lattices.
  for (const rlim_t bytes : {rlim_t{20'000}, rlim_t{120'000}}) {
    Finished finished;
    {
      const FileSizeLimit limit(bytes);
      finished = replayed();
    }
    EXPECT_EQ(finished.status, 1);
    EXPECT_THAT(finished.out, IsEmpty());
    EXPECT_THAT(finished.err,
                AllOf(StartsWith("quorvane-batch: \"" + temporary_.string()), EndsWith("File too large\n")));
    EXPECT_EQ(std::count(finished.err.begin(), finished.err.end(), '\n'), 1) << finished.err;
  }
}

TEST_F(Replay, RemovesItsFolderAtASignalAndEndsByIt) {
  makeRun(everything());
  json record = recorded();
  record["sweeps"] = {{"asked", 90000000}, {"done", 90000000}};
  change(record);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    Process process("/usr/bin/env", wordsToReplay(record_, temporary_));
    ASSERT_TRUE(waitUntil([&] {
      const auto names = namesIn(temporary_);
      return !names.empty() && fs::exists(temporary_ / names[0] / "result--frames");
    }));
    process.signal(signal);
    const Finished finished = process.wait();
    EXPECT_EQ(finished.status, -signal);
    EXPECT_THAT(finished.out, IsEmpty());
    EXPECT_THAT(finished.err, HasSubstr("of 90000000 sweeps\n"));
    EXPECT_THAT(namesIn(temporary_), IsEmpty());
  }
}

TEST_F(Replay, StandsAlone) {
  const std::string line =
      "quorvane-batch: --replay: needs no document and no other option with it (--help tells more)\n";
  const std::vector<std::string> wrong[] = {
      {document_, "--replay", record_},           {"--replay", record_, document_},
      {"--replay", record_, "--sweeps", "5"},     {"--sweeps", "5", "--replay", record_},
      {"--replay", record_, "--replay", record_}, {"--replay=" + record_, "--trace"}};
  for (const auto& arguments : wrong) {
    const Finished finished = runBatchProgram(arguments);
    EXPECT_EQ(finished.status, 2);
    EXPECT_EQ(finished.err, line);
  }
  EXPECT_EQ(runBatchProgram({"--replay", "-"}).err,
            "quorvane-batch: --replay: needs a file, not standard input (-) (--help tells more)\n");
  EXPECT_EQ(runBatchProgram({"--replay"}).err,
            "quorvane-batch: --replay: needs a name (--help tells more)\n");
  EXPECT_THAT(runBatchProgram({"--replay", record_, "--help"}).out, HasSubstr("Usage"));
  makeRun(everything());
  EXPECT_EQ(runBatchProgram({"--replay=" + record_}).status, 0);
}

}  // namespace
}  // namespace quorvane
