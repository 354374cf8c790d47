#pragma once

#include <string>
#include <string_view>

namespace quorvane {

/// Reads bytes as the file of a checkpoint, after giving them the checksum and the length that they should
/// have, and checks the invariants: it is refused in one line, or it gives the same bytes when it is written
/// again, and its model and its random numbers can be used. Returns what is wrong, or nothing.
std::string checkCheckpoint(std::string_view file);

}  // namespace quorvane
