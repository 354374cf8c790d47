#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace quorvane {

/// A shell script that submits a study to Slurm: an array of tasks with a part of the runs each, and a job
/// that makes the tables once all have ended. A task that is interrupted is requeued and goes on where it
/// was; the script may be run again as well.
std::string slurmScript(const std::filesystem::path& study, const std::filesystem::path& results,
                        std::int64_t tasks);

}  // namespace quorvane
