#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "Files.h"
#include "study/StudyError.h"
#include "study/StudyFile.h"

namespace quorvane {

/// A study of the example "ising-at-critical" with two axes, a series and 12 points.
inline constexpr const char* kSmallStudy = R"(document = "ising.quorvane"
sweeps   = 40
discard  = 10
every    = 5
replicas = 3
seed     = 11
observables = ["energy", "order:0:1", "correlation", "kept"]

[lattice]
sides = [8, [12, 6]]
fill  = { "Spin up" = 0.75, "Spin down" = 0.25 }

[[vary]]
rule = "Unlike spins repel"
parameter = { from = 0.70, to = 0.82, steps = 3 }

[[vary]]
type  = "Spin up"
field = [0.0, 0.05]

[series]
observables = ["contacts"]
)";

inline std::string isingDocument() {
  return contentOf(std::filesystem::path(QUORVANE_EXAMPLES) / "ising-at-critical.quorvane");
}

inline Study smallStudy() { return studyIn(kSmallStudy, "small.toml"); }

/// The line of the StudyError that a call throws; empty if it throws none.
template <class Call>
std::string studyErrorOf(Call&& call) {
  try {
    call();
  } catch (const StudyError& error) {
    EXPECT_EQ(std::string(error.what()).find('\n'), std::string::npos);
    return error.what();
  }
  return {};
}

}  // namespace quorvane
