#pragma once

#include "platform/PositionalFile.h"

#include <filesystem>
#include <string>
#include <vector>

namespace vireo {

/// How a program has another one do a part of its work. Not there on Windows, where a process
/// cannot become another program.

/// Lets another program do the rest of this process, with the same streams, working folder and
/// process number, so that its exit status is this program's. It is told this program's path as its
/// own name (see StandInFor) and the arguments, in UTF-8. Returns only when it cannot be started.
FileStatus HandOver(
    const std::filesystem::path& program, const std::vector<std::string>& arguments);

/// In the other program, before anything asks for ProgramPath(): takes the path of the one it works
/// for as its own, so that what lies beside that program lies beside this one.
void StandInFor(const std::filesystem::path& program);

} // namespace vireo
