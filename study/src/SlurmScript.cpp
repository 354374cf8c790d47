#include "study/SlurmScript.h"

#include "study/RunCommand.h"

namespace quorvane {

std::string slurmScript(const std::filesystem::path& study, const std::filesystem::path& results,
                        std::int64_t tasks) {
  const std::string file = shellWord(study.native()), folder = shellWord(results.native());
  const std::string count = std::to_string(tasks), name = shellWord(study.stem().native());
  return R"(#!/bin/sh
# Submits a study to Slurm. Run it with sh in the folder where the study's name is found; add the options that your
# cluster asks for (--partition, --time, --account) behind sbatch, both times.
set -eu

array=$(sbatch --parsable --job-name=)" +
         name + R"( --array=1-)" + count + R"( --ntasks=1 --cpus-per-task=1 \
  --requeue --open-mode=append --output=slurm-%A-%a.log <<'TASK'
#!/bin/sh
# Slurm sends SIGTERM before it ends a task; the runs that are made stay, and a requeued task goes on.
exec quorvane-study run )" +
         file + R"( --results )" + folder +
         R"( -j "${SLURM_CPUS_PER_TASK:-1}" --shard "$SLURM_ARRAY_TASK_ID/)" + count +
         R"("
TASK
)
sbatch --job-name=)" +
         name + R"( --dependency="afterany:${array%%;*}" --ntasks=1 --output=slurm-%j.log <<'TABLE'
#!/bin/sh
exec quorvane-study table )" +
         folder + R"(
TABLE
)";
}

}  // namespace quorvane
