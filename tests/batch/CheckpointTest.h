#pragma once

#include <map>
#include <string>
#include <vector>

#include "RunnerTest.h"

namespace quorvane {

/// Runs with every kind of result, interrupted and continued, in folders of their own.
class CheckpointTest : public Runner {
 protected:
  using Words = std::vector<std::string>;
  /// The names of all files with their contents, without checkpoints.
  using Contents = std::map<std::string, std::string>;

  CheckpointTest() { std::filesystem::create_directory(work_); }

  /// The sweeps between two records of a run.
  static constexpr std::size_t kEvery = 7;

  /// A run of the sample with every result in a folder.
  Words runIn(const std::filesystem::path& folder, const std::string& sweeps) const {
    return {document_,    "--sweeps",      sweeps,          "--every",       std::to_string(kEvery),
            "--output",   folder / "o",    "--populations", folder / "p",    "--measure",
            folder / "m", "--observables", "kept,energy",   "--lattices",    folder / "l",
            "--picture",  folder / "x",    "--frames",      folder / "film", "--scale",
            "1",          "--trace"};
  }
  Words withCheckpoints(Words words) const {
    words.insert(words.end(), {"--checkpoint", checkpoint_, "--checkpoint-every", "0.001"});
    return words;
  }
  Words continuation(const std::string& sweeps = {}) const {
    Words words = {"--continue", checkpoint_};
    if (!sweeps.empty()) words.insert(words.end(), {"--sweeps", sweeps});
    return words;
  }

  Contents contentsOf(const std::filesystem::path& folder) const {
    Contents contents;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
      if (entry.is_regular_file() && entry.path() != checkpoint_)
        contents[entry.path().lexically_relative(folder)] = contentOf(entry.path());
    return contents;
  }
  /// What a run in one go leaves.
  Contents inOneGo(const std::string& sweeps) const {
    const TemporaryFolder folder;
    EXPECT_EQ(runBatchProgram(runIn(folder.path(), sweeps)).status, 0);
    return contentsOf(folder.path());
  }

  void expectDone(const Words& words) const {
    const Finished finished = runBatchProgram(words);
    EXPECT_EQ(finished.status, 0) << finished.err;
    EXPECT_EQ(finished.err, "");
  }
  /// Refused in one line, with nothing changed.
  void expectRefusedLeaving(const Words& words, const std::string& line, int status = 1) const {
    const auto before = contentsOf(work_);
    const std::string checkpoint = std::filesystem::exists(checkpoint_) ? contentOf(checkpoint_) : "";
    const Finished finished = runBatchProgram(words);
    EXPECT_EQ(finished.status, status);
    EXPECT_EQ(finished.err, "quorvane-batch: " + line + "\n");
    EXPECT_EQ(contentsOf(work_), before);
    EXPECT_EQ(std::filesystem::exists(checkpoint_) ? contentOf(checkpoint_) : "", checkpoint);
  }

  const std::filesystem::path work_ = folder_ / "work";
  const std::string checkpoint_ = work_ / "run.checkpoint";
};

}  // namespace quorvane
