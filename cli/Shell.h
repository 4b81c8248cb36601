#pragma once

#include <string_view>

namespace vireo {

// What the programs that are run from a shell have in common.

inline constexpr int kExitDone = 0;
inline constexpr int kExitFileFailed = 1;
inline constexpr int kExitBadUsage = 2;

/// Prints one line "program: text" on standard error. Control characters become blanks.
void PrintError(std::string_view program, std::string_view text);

} // namespace vireo
