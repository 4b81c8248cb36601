#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace vireo {

/// Cuts the one file name out of a raw command line, by byte position as the shell's open-with and
/// drag-on-icon forms need it. Quotes of a quoted drive path stay: SetFileToLoad drops them. The
/// closing quote of a quoted network path becomes a trailing blank.
std::string CutFileName(std::string_view commandLine);

/// The file to open for a command line: the line itself, or the line without one pair of quotes
/// around it, when that names an existing path; else what CutFileName gives. Empty for an empty
/// line.
std::string FileToLoad(
    std::string_view commandLine, const std::function<bool(std::string_view)>& exists);

/// The raw command line behind the program's name, from the arguments of main without that name: as
/// typed for one argument, joined by blanks for several. (On Windows the viewer takes the system's
/// own text.)
std::string RawCommandLine(const std::vector<std::string>& arguments);

/// The longest file name that the main dialog takes, in characters of the text it is given.
inline constexpr std::size_t kFileToLoadCharacters = 256;

/// Whether a file name is longer than that, so that the end of it is lost.
bool IsTooLongToLoad(std::string_view text);

/// What the main dialog keeps of the file name it is given: the first kFileToLoadCharacters of it,
/// up to a zero, without double quotes.
std::string CopyFileToLoad(std::string_view text);

} // namespace vireo
