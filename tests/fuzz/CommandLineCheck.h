#pragma once

#include <string>
#include <string_view>

namespace quorvane {

/// Passes bytes to quorvane-batch as the words of a command line, each ended by a NUL, without a run, and
/// checks the invariants: a refusal is one line without library internals; accepted options are within the
/// limits and mean the same when written out again; no file is created, removed or changed; and quoted words
/// can be read back. Returns what is wrong, or nothing.
std::string checkCommandLine(std::string_view words);

}  // namespace quorvane
