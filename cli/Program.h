#pragma once

#include <string>
#include <vector>

namespace vireo {

inline constexpr const char* kCommandLineProgram = "vireo-cli";

/// Runs the command that the arguments (UTF-8, without the program's name) name; the exit status.
int RunProgram(const std::vector<std::string>& arguments);

} // namespace vireo
