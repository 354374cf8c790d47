#pragma once

#include <string_view>

#include "FaultPlan.h"

/// Whether a call is watched, and what becomes of it.
namespace quorvane {

/// What a call has to do.
enum class Verdict { kGoOn, kFail, kDoHalf, kDoNothing };

bool isWatched(const char* path);
bool isWatched(int file);

/// Counts a call that is watched. errno is set where it is to fail.
Verdict judge(Call call);
inline Verdict judge(Call call, const char* path) { return isWatched(path) ? judge(call) : Verdict::kGoOn; }
inline Verdict judge(Call call, int file) { return isWatched(file) ? judge(call) : Verdict::kGoOn; }

/// A descriptor is watched from its opening to its closing.
void note(int file, bool watched);

/// Adds a line, and the bytes behind it, to the record if there is one. Up to the first line feed, the text
/// is formed as by printf.
[[gnu::format(printf, 2, 3)]] void record(std::string_view bytes, const char* format, ...);

}  // namespace quorvane
