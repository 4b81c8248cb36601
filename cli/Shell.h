#pragma once

#include <string_view>

namespace vireo {

// What the programs that are run from a shell have in common.

inline constexpr int kExitDone = 0;
inline constexpr int kExitFileFailed = 1;
inline constexpr int kExitBadUsage = 2;

/// Writes on standard output, at once; false when that cannot be written.
[[nodiscard]] bool PrintOutput(std::string_view text);
/// Writes all that a program has to tell on standard output; its exit status. Standard error says
/// so when that fails.
int PrintAll(std::string_view program, std::string_view text);
inline constexpr const char* kOutputFailed = "standard output: Cannot be written";

/// Prints one line "program: text" on standard error. Control characters become blanks.
void PrintError(std::string_view program, std::string_view text);

} // namespace vireo
