#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "RunnerTest.h"
#include "record/Fingerprint.h"

namespace quorvane {

/// Runs with a record, beside a copy of an example.
class RecordedRun : public Runner {
 protected:
  RecordedRun() {
    put(document_, contentOf(std::filesystem::path(QUORVANE_EXAMPLES) / "ising-below-critical.quorvane"));
  }

  /// The arguments of a run with every result in a file and every option.
  std::vector<std::string> everything(const std::string& sweeps = "20") const {
    return {document_,
            "--sweeps",
            sweeps,
            "--every",
            "7",
            "--seed",
            "5",
            "--set",
            "rule #0 parameter=0.3",
            "--remake",
            "64x32",
            "--fill",
            "#0=0.25,#1=0.75",
            "--output",
            output_,
            "--populations",
            populations_,
            "--measure",
            folder_ / "measured.csv",
            "--observables",
            "energy,kept",
            "--lattices",
            folder_ / "lattices.npy",
            "--picture",
            picture_,
            "--frames",
            folder_ / "film",
            "--trace",
            "--scale",
            "3",
            "--record",
            record_};
  }
  void makeRun(const std::vector<std::string>& arguments) const {
    const Finished finished = runBatchProgram(arguments);
    ASSERT_EQ(finished.status, 0) << finished.err;
  }
  nlohmann::json recorded() const { return nlohmann::json::parse(contentOf(record_)); }
  /// Writes a changed record.
  void change(const nlohmann::json& record) const { put(record_, record.dump()); }

  const std::string record_ = (folder_ / "record.json").string();
};

}  // namespace quorvane
