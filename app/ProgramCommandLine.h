#pragma once

#include <string>
#include <string_view>

namespace vireo {

/// What stands behind the program's name in a whole command line: the name ends at a blank or tab
/// outside double quotes, and the blanks behind it are skipped too.
std::string_view BehindProgramName(std::string_view wholeCommandLine);

/// The raw command line of this process behind the program's name, in UTF-8. Windows: the system's
/// own text, quotes and all; elsewhere put together from the arguments of main.
std::string ProgramCommandLine(int argc, const char* const* argv);

} // namespace vireo
