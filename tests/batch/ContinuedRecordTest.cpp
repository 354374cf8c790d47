#include <csignal>
#include <nlohmann/json.hpp>

#include "RunnerTest.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;

/// Runs in folders of their own with relative paths, as a person types them.
class ContinuedRecord : public testing::Test {
 protected:
  fs::path folderOf(const std::string& name) const {
    const fs::path folder = folder_ / name;
    fs::create_directories(folder);
    fs::copy_file(fs::path(QUORVANE_EXAMPLES) / "forest-fire.quorvane", folder / "fire.quorvane",
                  fs::copy_options::overwrite_existing);
    return folder;
  }

  static Finished shell(const fs::path& folder, const std::string& arguments) {
    return run("/bin/sh", {"-c", "cd '" + folder.string() + "' && exec " QUORVANE_BATCH " " + arguments});
  }
  /// The command of a run with a frame every kEvery sweeps. The number of sweeps comes behind it.
  static constexpr std::size_t kEvery = 100;
  static constexpr const char* kRun =
      "fire.quorvane --seed 7 --remake 40x30 --set 'rule #0 parameter=0.25' --fill '#0=0.5,#1=0.5' --every "
      "100 --output "
      "out.quorvane "
      "--populations=counts.csv --measure sub/../energy.csv --observables energy,kept --lattices all.npy "
      "--frames film --picture last.png --record run.json --checkpoint run.checkpoint --sweeps ";

  static json recordIn(const fs::path& folder) { return json::parse(contentOf(folder / "run.json")); }

  /// What two runs of the same sweeps share.
  static json comparable(json record) {
    for (const char* key : {"started", "seconds", "commandLine", "workingFolder"})
      EXPECT_EQ(record.erase(key), 1u) << key;
    return record;
  }

  TemporaryFolder folder_;
};

TEST_F(ContinuedRecord, IsThatOfOneGo) {
  const fs::path whole = folderOf("whole"), part = folderOf("part");
  fs::create_directory(whole / "sub");
  fs::create_directory(part / "sub");
  ASSERT_EQ(shell(whole, kRun + std::string("750")).status, 0);
  ASSERT_EQ(shell(part, kRun + std::string("330")).status, 0);
  const json first = recordIn(part);
  EXPECT_EQ(first["sweeps"]["done"], 330);
  // From another folder, since the checkpoint has the paths.
  ASSERT_EQ(shell(folder_.path(), "--continue part/run.checkpoint --sweeps 750").status, 0);
  const json record = recordIn(part);
  EXPECT_EQ(comparable(record), comparable(recordIn(whole)));
  EXPECT_EQ(record["started"], first["started"]);
  EXPECT_EQ(record["commandLine"], first["commandLine"]);
  EXPECT_EQ(record["workingFolder"], first["workingFolder"]);
  EXPECT_GT(record["seconds"], first["seconds"]) << "of both parts";
  EXPECT_EQ(shell(folder_.path(), "--replay part/run.json").status, 0);
}

TEST_F(ContinuedRecord, AfterAKillIsThatOfOneGo) {
  const fs::path whole = folderOf("whole"), part = folderOf("part");
  fs::create_directory(whole / "sub");
  fs::create_directory(part / "sub");
  {
    Process process("/bin/sh", {"-c", "cd '" + part.string() + "' && exec " QUORVANE_BATCH " " + kRun +
                                          kForever + " --checkpoint-every 0.01"});
    const auto frames = [&] { return fs::exists(part / "film") ? namesIn(part / "film").size() : 0; };
    ASSERT_TRUE(waitUntil([&] { return frames() > 9; }));
    process.kill();
    process.wait();
  }
  EXPECT_FALSE(fs::exists(part / "run.json"));
  const std::string sweeps = std::to_string(kEvery * namesIn(part / "film").size());
  ASSERT_EQ(shell(part, "--continue run.checkpoint --sweeps " + sweeps).status, 0);
  ASSERT_EQ(shell(whole, kRun + sweeps).status, 0);
  EXPECT_EQ(comparable(recordIn(part)), comparable(recordIn(whole)));
}

TEST_F(ContinuedRecord, OfADamagedCheckpointIsRefused) {
  const fs::path part = folderOf("part");
  ASSERT_EQ(
      shell(part, "fire.quorvane --sweeps 3 --output out.quorvane --record=run.json --checkpoint c").status,
      0);
  std::string bytes = contentOf(part / "c");
  const auto place = bytes.find("\"commandLine\"");
  ASSERT_NE(place, std::string::npos) << "the record is carried as JSON";
  bytes[place + 1] = 'k';
  put(part / "c", bytes);
  const Finished finished = shell(part, "--continue c --sweeps 5");
  EXPECT_EQ(finished.status, 1);
  EXPECT_EQ(finished.err, "quorvane-batch: \"c\": is damaged (its checksum differs)\n");
}

}  // namespace
}  // namespace quorvane
