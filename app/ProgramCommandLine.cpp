#include "app/ProgramCommandLine.h"

#include "app/CommandLine.h"
#include "platform/Console.h"

namespace vireo {

std::string_view BehindProgramName(std::string_view wholeCommandLine)
{
    bool quoted = false;
    std::size_t end = 0;
    for (; end < wholeCommandLine.size(); ++end) {
        const char c = wholeCommandLine[end];
        if (c == '"')
            quoted = !quoted;
        else if (!quoted && (c == ' ' || c == '\t'))
            break;
    }
    const std::size_t begin = wholeCommandLine.find_first_not_of(" \t", end);
    return begin == std::string_view::npos ? std::string_view() : wholeCommandLine.substr(begin);
}

std::string ProgramCommandLine(int argc, const char* const* argv)
{
    if (const auto whole = WholeCommandLine())
        return std::string(BehindProgramName(*whole));
    return RawCommandLine(ProgramArguments(argc, argv));
}

} // namespace vireo
