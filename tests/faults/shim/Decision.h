#pragma once

#include <string_view>

#include "FaultPlan.h"

/// Decides for each call whether it is watched and whether it fails.
namespace quorvane {

/// What a call has to do.
enum class Verdict { kGoOn, kFail, kDoHalf, kDoNothing };

bool isWatched(const char* path);
bool isWatched(int file);

/// Counts a watched call. Sets errno if it is to fail.
Verdict judge(Call call);
inline Verdict judge(Call call, const char* path) { return isWatched(path) ? judge(call) : Verdict::kGoOn; }
inline Verdict judge(Call call, int file) { return isWatched(file) ? judge(call) : Verdict::kGoOn; }

/// A descriptor is watched from open to close.
void note(int file, bool watched);

/// Appends a line, and the bytes after it, to the record if there is one. The format up to the first line
/// feed is that of printf.
[[gnu::format(printf, 2, 3)]] void record(std::string_view bytes, const char* format, ...);

}  // namespace quorvane
