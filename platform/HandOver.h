#pragma once

#include "platform/PositionalFile.h"

#include <filesystem>
#include <string>
#include <vector>

namespace vireo {

/// Lets another program do the rest of this process, with the arguments, in UTF-8, the same working
/// folder and streams, so that its exit status is this program's. Returns only when it cannot be
/// started.
///
/// Where a process can become another program it does, with the same process number; the other
/// program is told this one's path as its own name (see StandInFor). On Windows this process waits
/// for the other, passes on what it writes, and ends it when it is ended itself. The other program
/// may there be one for windows, which has no way to a console of its own.
FileStatus HandOver(
    const std::filesystem::path& program, const std::vector<std::string>& arguments);

#ifdef _WIN32
/// In the other program: whether it was started by HandOver.
bool IsHandedOver();
#else
/// In the other program, before anything asks for ProgramPath(): takes the path of the one it works
/// for as its own, so that what lies beside that program lies beside this one.
void StandInFor(const std::filesystem::path& program);
#endif

} // namespace vireo
