#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Files.h"
#include "Process.h"
#include "study/SlurmScript.h"

namespace quorvane {
namespace {

using testing::HasSubstr;

TEST(SlurmScript, SubmitsAnArrayAndAJobForTheTables) {
  const std::string script = slurmScript("ising.toml", "ising.results", 40);
  EXPECT_THAT(script, HasSubstr("--job-name=ising --array=1-40 "));
  EXPECT_THAT(script, HasSubstr("\nexec quorvane-study run ising.toml --results ising.results "));
  EXPECT_THAT(script, HasSubstr("--shard \"$SLURM_ARRAY_TASK_ID/40\"\n"));
  EXPECT_THAT(script, HasSubstr("--dependency=\"afterany:${array%%;*}\""));
  EXPECT_THAT(script, HasSubstr("\nexec quorvane-study table ising.results\n"));
}

/// Runs the script with an sbatch that prints its arguments and the job.
TEST(SlurmScript, NamesMayHaveSpacesAndQuotationMarks) {
  const TemporaryFolder folder;
  put(folder / "sbatch", "#!/bin/sh\nprintf '<%s>' \"$@\" >&2; echo >&2; cat >&2; echo 17\n");
  std::filesystem::permissions(folder / "sbatch", std::filesystem::perms::owner_all);
  put(folder / "submit.sh", slurmScript("my 'first' study.toml", "here & there", 2));
  const Finished finished =
      quorvane::run("/bin/sh", {"-c", "cd '" + folder.path().string() + "' && PATH=.:$PATH sh submit.sh"});
  EXPECT_EQ(finished.status, 0);
  EXPECT_THAT(finished.err, HasSubstr("<--job-name=my 'first' study>"));
  EXPECT_THAT(finished.err, HasSubstr("<--dependency=afterany:17>"));
  EXPECT_THAT(finished.err, HasSubstr("quorvane-study run 'my '\\''first'\\'' study.toml'"));
  EXPECT_THAT(finished.err, HasSubstr("quorvane-study table 'here & there'"));
}

}  // namespace
}  // namespace quorvane
