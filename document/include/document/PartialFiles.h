#pragma once

#include <filesystem>
#include <string>

/// Files that grow beside their target: ".counts.csv.quorvane-4711.partial" beside "counts.csv".
namespace quorvane {

/// The name of this process's file for a target, in a folder whose names have so many bytes at most. A long
/// name of the target is cut between characters. attempt: 0, or a number that tells files of one process
/// apart.
std::string partialName(const std::string& target, int attempt, std::size_t longest);

/// Marks an open file as one that somebody is writing.
void holdPartialFile(int file);

/// Removes what processes that are gone have left of a target. A file whose target's name had to be cut
/// stays: it might be another's.
void sweepPartialFiles(const std::filesystem::path& target);

}  // namespace quorvane
