#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "Files.h"
#include "Process.h"

namespace quorvane {
namespace {

using testing::HasSubstr;
namespace fs = std::filesystem;

constexpr const char* kStudy = R"(# A study & its <report>.
document = "ising.quorvane"
sweeps   = 20
every    = 5
replicas = 2
observables = ["energy", "order:0:1", "clusters", "correlation"]

[lattice]
sides = [8, [12, 6]]

[[vary]]
rule = "Unlike spins repel"
parameter = { from = 0.5, to = 0.9, steps = 9 }

[[vary]]
type  = "Spin up"
field = [0.0, 0.05]

[series]
observables = ["contacts", "structure"]
)";

/// What is said of the first fifth of the runs.
const std::string kPart = "quorvane-study: 15 of 72 runs are made so far\n";

class Report : public testing::Test {
 protected:
  void makeRuns(const std::string& study, const std::vector<std::string>& more = {}) const {
    put(folder_ / "ising.quorvane", contentOf(fs::path(QUORVANE_EXAMPLES) / "ising-at-critical.quorvane"));
    put(folder_ / "small.toml", study);
    std::vector<std::string> words{"run", folder_ / "small.toml", "--results", results_};
    words.insert(words.end(), more.begin(), more.end());
    const Finished finished = quorvane::run(QUORVANE_STUDY, words);
    ASSERT_EQ(finished.status, 0) << finished.err;
  }
  Finished report() const { return quorvane::run(QUORVANE_STUDY, {"report", results_}); }
  /// With a folder of programs before the others.
  Finished reportWith(const std::string& path) const {
    return quorvane::run(
        "/bin/sh", {"-c", "PATH='" + path + "' exec " QUORVANE_STUDY " report '" + results_.string() + "'"});
  }
  std::string page() const { return contentOf(results_ / "report.html"); }

  TemporaryFolder folder_;
  fs::path results_ = folder_ / "small.results";
};

TEST_F(Report, IsAPageThatNeedsNothingElse) {
  makeRuns(kStudy);
  const Finished finished = report();
  EXPECT_EQ(finished.err, "");
  ASSERT_EQ(finished.status, 0);
  const Finished checked = quorvane::run("/usr/bin/python3", {QUORVANE_CHECK_PAGE, results_ / "report.html"});
  // Three axes for each of 13 quantities, and two correlations; three contacts, two lengths and two structure
  // factors, five of these also with logarithmic axes.
  EXPECT_EQ(checked.status, 0) << checked.out << checked.err;
  EXPECT_THAT(checked.out, testing::StrEq("53 figures, 22 tables\n"));
  EXPECT_THAT(page(), HasSubstr("<p>A study &amp; its &lt;report&gt;.</p>"));
  EXPECT_THAT(page(), HasSubstr("ising.quorvane"));
  EXPECT_THAT(page(), HasSubstr("SHA-256 of the document"));
  const std::string first = page();
  EXPECT_EQ(report().status, 0);
  EXPECT_EQ(page(), first);
}

TEST_F(Report, OfAPartOfTheRunsSaysSo) {
  makeRuns(kStudy, {"--shard", "1/5"});
  EXPECT_EQ(report().status, 0);
  EXPECT_THAT(page(), HasSubstr("Not all runs are made: 15 of 72, and 0 failed."));
}

TEST_F(Report, OfNoRunsHasNoFigures) {
  makeRuns(kStudy, {"--shard", "73/73"});
  EXPECT_EQ(report().status, 0) << report().err;
  EXPECT_THAT(page(), HasSubstr("Not all runs are made: 0 of 72, and 0 failed."));
  EXPECT_THAT(page(), testing::Not(HasSubstr("<svg")));
}

TEST_F(Report, WithoutGnuplotIsRefusedAndTheTablesAreMade) {
  makeRuns(kStudy, {"--shard", "1/5"});
  const Finished finished = reportWith(folder_.path());
  EXPECT_EQ(finished.status, 1);
  EXPECT_EQ(finished.err,
            kPart +
                "quorvane-study: gnuplot, which draws the figures, is not installed: install the package "
                "gnuplot-nox\n");
  EXPECT_TRUE(fs::exists(results_ / "points.csv"));
  EXPECT_FALSE(fs::exists(results_ / "report.html"));
}

TEST_F(Report, TellsWhyGnuplotFailed) {
  makeRuns(kStudy, {"--shard", "1/5"});
  const fs::path fake = folder_ / "gnuplot";
  put(fake, "#!/bin/sh\necho; echo '  line 3: out of ink' >&2; exit 1\n");
  fs::permissions(fake, fs::perms::owner_all);
  EXPECT_EQ(reportWith(folder_.path()).err, kPart + "quorvane-study: gnuplot failed: line 3: out of ink\n");
  put(fake, "#!/bin/sh\necho '<svg></svg>'\n");
  EXPECT_THAT(reportWith(folder_.path()).err,
              testing::MatchesRegex(kPart + "quorvane-study: gnuplot drew 1 of [0-9]+ figures\n"));
  EXPECT_FALSE(fs::exists(results_ / "report.html"));
}

TEST_F(Report, OfSomethingElseIsRefusedInOneLine) {
  EXPECT_EQ(report().err, "quorvane-study: \"" + results_.string() +
                              "\": is no folder of a study's results (it has no study.json)\n");
  makeRuns(kStudy, {"--shard", "1/5"});
  fs::create_directory(results_ / "report.html");
  const Finished finished = report();
  EXPECT_EQ(finished.status, 1);
  EXPECT_THAT(finished.err, testing::MatchesRegex(kPart + "quorvane-study: \".*report.html\": .*\n"));
}

}  // namespace
}  // namespace quorvane
