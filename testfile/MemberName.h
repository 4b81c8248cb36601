#pragma once

#include <string>
#include <string_view>

namespace vireo {

/// Why a member of a packed dump cannot become a file. A name is judged alike on every system: a
/// dump is carried from one machine to another, and what a name may do must not depend on where.
enum class NameFault {
    None,
    Empty,
    TooLong,   ///< 260 characters or more.
    Folder,    ///< A folder part, a drive or a stream: '/', '\' or ':' anywhere.
    Character, ///< A control character or one of < > " | ? *, which not every system takes.
    Ending,    ///< Ends with a dot ("." and ".." do) or a blank, which Windows would leave out.
    Device,    ///< CON, PRN, AUX, NUL, COM1 and the like, with or without an extension.
    DumpItself ///< The dump's own name, letters of either case.
};

/// A few words for messages, such as "the name has a folder part"; empty for None.
std::string_view Describe(NameFault fault);

/// Judges a member's name (Windows-1252). `dumpName` is the dump's own, without its folder.
NameFault CheckMemberName(std::string_view name, std::string_view dumpName);

} // namespace vireo
