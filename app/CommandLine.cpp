#include "app/CommandLine.h"

#include <algorithm>

namespace vireo {

namespace {

// The scratch buffer for a name that has to be cut out: MAX_PATH with its terminating zero.
constexpr std::size_t kScratchCharacters = 259;

bool HasAt(std::string_view text, std::size_t index, char character)
{
    return index < text.size() && text[index] == character;
}

std::string QuotesToBlanks(std::string_view text)
{
    std::string blanked(text);
    std::replace(blanked.begin(), blanked.end(), '"', ' ');
    return blanked;
}

/// The text from the drive letter before the first ':', or all of it where there is no ':'.
std::string_view FromDriveLetter(std::string_view text)
{
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos || colon == 0)
        return text;
    return text.substr(colon - 1);
}

std::string_view WithoutOuterQuotes(std::string_view text)
{
    const bool quoted = text.size() >= 2 && text.front() == '"' && text.back() == '"';
    return quoted ? text.substr(1, text.size() - 2) : text;
}

} // namespace

std::string CutFileName(std::string_view commandLine)
{
    const bool isDrivePath = HasAt(commandLine, 1, ':');
    const bool isQuotedDrivePath = HasAt(commandLine, 2, ':');
    if (isDrivePath || isQuotedDrivePath)
        return std::string(commandLine);

    const bool isQuotedNetworkPath = HasAt(commandLine, 1, '\\') && HasAt(commandLine, 2, '\\');
    if (isQuotedNetworkPath)
        return QuotesToBlanks(commandLine.substr(1));

    return QuotesToBlanks(FromDriveLetter(commandLine).substr(0, kScratchCharacters));
}

std::string FileToLoad(
    std::string_view commandLine, const std::function<bool(std::string_view)>& exists)
{
    for (const std::string_view path : {commandLine, WithoutOuterQuotes(commandLine)}) {
        if (!path.empty() && exists(path))
            return std::string(path);
    }
    return CutFileName(commandLine);
}

std::string RawCommandLine(const std::vector<std::string>& arguments)
{
    std::string line;
    for (const std::string& argument : arguments) {
        if (!line.empty())
            line += ' ';
        line += argument;
    }
    return line;
}

namespace {

/// Where the first `count` characters of UTF-8 text end. Bytes that continue a character are not
/// counted, so none is cut apart.
std::size_t EndOfCharacters(std::string_view text, std::size_t count)
{
    const auto begins = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; };
    std::size_t end = 0;
    while (end < text.size() && (!begins(text[end]) || count-- > 0))
        ++end;
    return end;
}

} // namespace

bool IsTooLongToLoad(std::string_view text)
{
    const std::size_t end = EndOfCharacters(text, kFileToLoadCharacters);
    return text.find_first_not_of('"', end) != std::string_view::npos;
}

std::string CopyFileToLoad(std::string_view text)
{
    text = text.substr(0, EndOfCharacters(text, kFileToLoadCharacters));
    text = text.substr(0, text.find('\0'));
    std::string name(text);
    std::erase(name, '"');
    return name;
}

} // namespace vireo
