#include <sys/stat.h>

#include <csignal>

#include "RecordedRun.h"
#include "batch/Provenance.h"
#include "engine/f_ran0.h"
#include "record/Record.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// The hash that another program gives.
std::string sha256sum(const fs::path& file) {
  return run("/usr/bin/sha256sum", {"-b", file}).out.substr(0, 64);
}

void expectHashOf(const json& entry, const fs::path& file) {
  EXPECT_EQ(entry["sha256"], sha256sum(file)) << file;
  EXPECT_EQ(entry["bytes"], fs::file_size(file)) << file;
}

TEST_F(RecordedRun, TellsTheProgramTheMachineAndTheOptions) {
  makeRun(everything());
  const json record = recorded();
  EXPECT_EQ(record["format"], "quorvane-record");
  EXPECT_EQ(record["formatVersion"], 1);
  const Program program = thisProgram();
  EXPECT_EQ(record["program"]["name"], "quorvane-batch");
  EXPECT_EQ(record["program"]["version"], QUORVANE_VERSION);
  EXPECT_EQ(record["program"]["commit"], program.commit);
  EXPECT_EQ(record["program"]["compiler"], program.compiler);
  EXPECT_EQ(record["program"]["cLibrary"], program.cLibrary);
  EXPECT_EQ(record["machine"]["processor"], thisMachine().processor);
  EXPECT_EQ(record["machine"]["cores"], thisMachine().cores);
  auto commandLine = everything();
  commandLine.insert(commandLine.begin(), QUORVANE_BATCH);
  EXPECT_EQ(record["commandLine"], commandLine);
  EXPECT_EQ(record["workingFolder"], fs::current_path().native());
  EXPECT_EQ(record["seed"], 5);
  EXPECT_EQ(record["settings"], json({"rule #0 parameter=0.3"}));
  EXPECT_EQ(record["remake"], "64x32");
  EXPECT_EQ(record["fill"], "#0=0.25,#1=0.75");
  EXPECT_EQ(record["observables"], "energy,kept");
  EXPECT_EQ(record["every"], 7);
  EXPECT_EQ(record["scale"], 3);
  EXPECT_EQ(record["trace"], true);
  EXPECT_EQ(record["sweeps"], json({{"asked", 20}, {"done", 20}}));
}

TEST_F(RecordedRun, HasTheUsualSeedAndNoOptionsIfNoneAreGiven) {
  makeRun({document_, "--sweeps", "0", "--output", output_, "--record", record_});
  const json record = recorded();
  EXPECT_EQ(record["seed"], 10);
  EXPECT_EQ(record["settings"], json::array());
  for (const char* option : {"remake", "fill", "observables"})
    EXPECT_TRUE(record[option].is_null()) << option;
  EXPECT_EQ(record["every"], 1);
  EXPECT_EQ(record["trace"], false);
}

TEST_F(RecordedRun, HasTheHashesThatAnotherProgramGives) {
  makeRun(everything());
  const json record = recorded();
  EXPECT_EQ(record["document"]["path"], document_);
  expectHashOf(record["document"], document_);
  std::vector<std::string> options;
  for (const json& output : record["outputs"]) {
    options.push_back(output["option"]);
    if (output["option"] != "--frames") expectHashOf(output, std::string(output["path"]));
  }
  EXPECT_THAT(options,
              ElementsAre("--output", "--populations", "--measure", "--lattices", "--frames", "--picture"));
  const json& film = record["outputs"][4];
  EXPECT_EQ(film["path"], (folder_ / "film").native());
  std::vector<std::string> names;
  for (const json& frame : film["frames"]) {
    names.push_back(frame["name"]);
    expectHashOf(frame, folder_ / "film" / names.back());
  }
  EXPECT_EQ(names, namesIn(folder_ / "film"));
  EXPECT_EQ(names.size(), 4u);
}

TEST_F(RecordedRun, HasTheHashOfWhatWentToStandardOutput) {
  for (const char* option : {"--output", "--populations", "--picture"}) {
    const Finished finished = runBatchProgram(
        {document_, "--remake", "32x24", "--sweeps", "300", option, "-", "--record", record_});
    ASSERT_EQ(finished.status, 0) << finished.err;
    const json output = recorded()["outputs"][0];
    EXPECT_EQ(output["path"], "-");
    EXPECT_EQ(output["sha256"], fingerprintOf(finished.out).sha256) << option;
    EXPECT_EQ(output["bytes"], finished.out.size());
  }
}

TEST_F(RecordedRun, HasTheHashOfWhatWentToADevice) {
  for (const char* option : {"--output", "--populations", "--picture"}) {
    makeRun({document_, "--remake", "32x24", "--sweeps", "30", option, output_, "--record", record_});
    const json toFile = recorded()["outputs"][0];
    makeRun({document_, "--remake", "32x24", "--sweeps", "30", option, "/dev/null", "--record", record_});
    const json toDevice = recorded()["outputs"][0];
    EXPECT_EQ(toDevice["path"], "/dev/null");
    EXPECT_EQ(toDevice["sha256"], toFile["sha256"]) << option;
    EXPECT_EQ(toDevice["bytes"], toFile["bytes"]) << option;
  }
}

TEST_F(RecordedRun, HasTheHashOfTheDocumentAsItWasReadEvenIfTheOutputReplacesIt) {
  const std::string before = sha256sum(document_);
  makeRun({document_, "--sweeps", "30", "--output", document_, "--record", record_});
  EXPECT_EQ(recorded()["document"]["sha256"], before);
  expectHashOf(recorded()["outputs"][0], document_);
  expectFailure({"--replay", record_},
                named(document_) + ": has changed since the run: its SHA-256 begins with " +
                    sha256sum(document_).substr(0, 12) + ", recorded is " + before.substr(0, 12));
}

TEST_F(RecordedRun, HasTheHashOfADocumentFromStandardInput) {
  const Finished finished =
      runBatchProgram({"-", "--sweeps", "2", "--output", output_, "--record", record_}, contentOf(document_));
  ASSERT_EQ(finished.status, 0) << finished.err;
  EXPECT_EQ(recorded()["document"]["path"], "-");
  expectHashOf(recorded()["document"], document_);
}

TEST_F(RecordedRun, MayGoToStandardOutputItself) {
  const Finished finished =
      runBatchProgram({document_, "--sweeps", "2", "--output", output_, "--record", "-"});
  ASSERT_EQ(finished.status, 0) << finished.err;
  EXPECT_EQ(recordFromJson(finished.out).outputs.size(), 1u);
}

TEST_F(RecordedRun, CountsTheDrawsOfOpeningRemakingFillingAndSweeping) {
  makeRun(everything());
  processRandomSource.startAnew(5);
  const std::int64_t before = processRandomSource.drawsMade();
  const auto model = freshModel();
  ASSERT_EQ(openDocument(*model, document_).status, OpenStatus::kOpened);
  model->setRuleParam(0, 0.3);
  model->initializeLatticeModel(-1, 64, 32);
  for (int i = 0; i < 64; ++i)
    for (int j = 0; j < 32; ++j) model->setSiteValue(i, j, fRandReal() < 0.25 ? 0 : 1);
  model->runSweeps(20);
  const std::int64_t draws = processRandomSource.drawsMade() - before;
  EXPECT_EQ(contentOf(output_), writeDocument(*model));
  EXPECT_GT(draws, 20 * 64 * 32 * 3);
  EXPECT_EQ(recorded()["drawsMade"], draws);
}

TEST_F(RecordedRun, HasItsStartAndItsDuration) {
  const auto utcNow = [] { return run("/usr/bin/date", {"-u", "+%Y-%m-%dT%H:%M:%SZ"}).out.substr(0, 20); };
  const auto begin = std::chrono::steady_clock::now();
  const std::string before = utcNow();
  makeRun({document_, "--remake", "16x16", "--sweeps", "1000", "--output", output_, "--record", record_});
  const std::string after = utcNow();
  const double longest = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
  EXPECT_LE(before, recorded()["started"]);
  EXPECT_LE(recorded()["started"], after);
  EXPECT_GT(recorded()["seconds"], 0.001);
  EXPECT_LT(recorded()["seconds"], longest);
}

TEST_F(RecordedRun, ChangesNoOtherByte) {
  const auto filesWith = [&](const std::vector<std::string>& arguments) {
    fs::remove_all(folder_ / "film");
    makeRun(arguments);
    std::string all;
    for (const std::string& file : {output_, populations_, picture_, (folder_ / "measured.csv").string(),
                                    (folder_ / "lattices.npy").string()})
      all += contentOf(file);
    for (const std::string& frame : namesIn(folder_ / "film")) all += contentOf(folder_ / "film" / frame);
    return all;
  };
  const auto with = everything();
  EXPECT_EQ(filesWith(with), filesWith({with.begin(), with.end() - 2}));
}

TEST(Provenance, OfAContinuedRunAddsSecondsAndDrawsToItsFirstStart) {
  BatchOptions options;
  options.document = "in.quorvane";
  options.commandLine = {"quorvane-batch", "in.quorvane"};
  Provenance first(options);
  first.addDocument("text");
  for (int k = 0; k < 1000; ++k) fRandReal();
  RunStart left = startFromJson(toJson(first.start()));
  EXPECT_EQ(left.drawsMade, 1000);
  left.seconds = 100.0;
  left.started = "2001-02-03T04:05:06Z";

  // Between two processes the source may have drawn, as by the start of the second.
  for (int k = 0; k < 50; ++k) fRandReal();
  const BatchOptions none;
  const Provenance second(none, left);
  for (int k = 0; k < 234; ++k) fRandReal();
  const RunStart start = second.record(7).start;
  EXPECT_EQ(start.drawsMade, 1234);
  EXPECT_GT(start.seconds, 100.0);
  EXPECT_LT(start.seconds, 160.0);
  EXPECT_EQ(start.started, left.started);
  EXPECT_EQ(start.commandLine, options.commandLine);
  EXPECT_EQ(start.document, (RecordedDocument{"in.quorvane", fingerprintOf("text")}));
}

TEST_F(RecordedRun, LacksAResultThatFailed) {
  const Finished finished = runBatchProgram(
      {document_, "--sweeps", "2", "--output", "/dev/full", "--picture", picture_, "--record", record_});
  EXPECT_EQ(finished.status, 1);
  ASSERT_EQ(recorded()["outputs"].size(), 1u);
  EXPECT_EQ(recorded()["outputs"][0]["option"], "--picture");
}

TEST_F(RecordedRun, IsNotMadeWithoutAResultBesideIt) {
  const Finished finished = runBatchProgram({document_, "--sweeps", "2", "--record", record_});
  EXPECT_EQ(finished.status, 2);
  EXPECT_EQ(
      finished.err,
      "quorvane-batch: no result is asked for: --output, --populations, --measure, --picture, --lattices "
      "or --frames is needed (--help tells more)\n");
}

TEST_F(RecordedRun, MustNotBeTheDocumentOrAnotherResult) {
  const auto refusal = [&](const std::string& record) {
    return runBatchProgram({document_, "--sweeps", "2", "--output", output_, "--record", record}).err;
  };
  EXPECT_THAT(refusal(document_), HasSubstr("is the document itself, which only --output may replace"));
  EXPECT_THAT(refusal(output_), HasSubstr("is asked for twice"));
  EXPECT_THAT(runBatchProgram({document_, "--sweeps", "2", "--frames", folder_ / "film", "--record",
                               folder_ / "film" / "frame-000000.png"})
                  .err,
              HasSubstr("it would be one of the frames"));
  EXPECT_THAT(namesIn(folder_.path()), ElementsAre("in.quorvane"));
}

TEST_F(RecordedRun, IsRefusedBeforeItRunsIfItCannotBeWritten) {
  expectFailure({document_, "--sweeps", kForever, "--output", output_, "--record", folder_ / "missing/r"},
                named(folder_ / "missing/r") + ": No such file or directory");
  EXPECT_FALSE(fs::exists(output_));
}

TEST_F(RecordedRun, IsRefusedForACommandLineThatJsonCannotHold) {
  const Finished finished = runBatchProgram(
      {document_, "--sweeps", kForever, "--output", folder_ / "\xe9t\xe9", "--record", record_});
  EXPECT_EQ(finished.status, 2);
  EXPECT_THAT(finished.err, HasSubstr("\\xe9t\\xe9\" is not UTF-8, as a record is"));
}

}  // namespace
}  // namespace quorvane
