#pragma once

#include <filesystem>
#include <string>

/// Partial files beside their target: ".counts.csv.quorvane-4711.partial" beside "counts.csv".
namespace quorvane {

/// The name of this process's file for a target, in a folder with a limit for names in bytes. A long name of
/// the target is cut between characters. attempt: 0, or a number that distinguishes files of one process.
std::string partialName(const std::string& target, int attempt, std::size_t longest);

/// True if a name could be that of a partial file of the target, made by any process.
bool isPartialName(const std::string& name, const std::string& target, std::size_t longest);

/// The path of a partial file with this name beside a target, whose links are followed; empty if the name is
/// not that of one.
std::filesystem::path partialBeside(const std::filesystem::path& target, const std::string& name);

/// Locks a file that has just been created, to mark it as being written. False if a sweep took it for one
/// that was left, before it was locked, and removes it.
bool holdPartialFile(int file);

/// Removes partial files of a target that dead processes left. Files with a shortened name stay, since they
/// might belong to another target.
void sweepPartialFiles(const std::filesystem::path& target);

}  // namespace quorvane
