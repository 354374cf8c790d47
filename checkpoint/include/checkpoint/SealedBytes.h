#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// The outer form of a checkpoint: a magic of 8 bytes, the version as 4 bytes, the length of the content as 8
/// bytes, the content, and the digest of all before as 16 bytes.
namespace quorvane {

/// Far more than any checkpoint has: the largest lattice with all traces has 6 MB.
inline constexpr std::size_t kMaxCheckpointBytes = 100'000'000;

std::string seal(std::string_view content);

/// The content as a view of the file's bytes. Throws CheckpointError for a file of another kind, of a newer
/// version, cut short or damaged.
std::string_view contentOfSealed(std::string_view file);

}  // namespace quorvane
