#include "testfile/MemberName.h"

#include "platform/Text.h"

#include <algorithm>

namespace vireo {

namespace {

constexpr std::size_t kNameTooLong = 260;

bool IsUnusable(char character)
{
    constexpr std::string_view kUnusable = "<>\"|?*";
    return static_cast<unsigned char>(character) < ' '
        || kUnusable.find(character) != std::string_view::npos;
}

/// The digits that number a port: 1 to 9, and the superscripts 1 to 3 of code page 1252, which
/// Windows takes for them.
bool IsPortNumber(char character)
{
    constexpr std::string_view kNumbers = "123456789\xB9\xB2\xB3";
    return kNumbers.find(character) != std::string_view::npos;
}

bool IsDevice(std::string_view name)
{
    constexpr std::string_view kDevices[] = {"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"};
    constexpr std::string_view kPorts[] = {"COM", "LPT"};
    // An extension changes nothing, nor do blanks before it.
    const std::string_view stem = Trimmed(name.substr(0, name.find('.')));
    const auto isStem = [stem](
                            std::string_view device) { return EqualsIgnoringCase(stem, device); };
    if (std::ranges::any_of(kDevices, isStem))
        return true;
    const auto isPort = [stem](std::string_view port) {
        return stem.size() == port.size() + 1 && IsPortNumber(stem.back())
            && EqualsIgnoringCase(stem.substr(0, port.size()), port);
    };
    return std::ranges::any_of(kPorts, isPort);
}

} // namespace

std::string_view Describe(NameFault fault)
{
    switch (fault) {
    case NameFault::None:
        break;
    case NameFault::Empty:
        return "there is no name";
    case NameFault::TooLong:
        return "the name is too long";
    case NameFault::Folder:
        return "the name has a folder part";
    case NameFault::Character:
        return "the name has a character that file names cannot have";
    case NameFault::Ending:
        return "the name ends with a dot or a blank";
    case NameFault::Device:
        return "the name is that of a device";
    case NameFault::DumpItself:
        return "the name is that of the dump itself";
    }
    return {};
}

NameFault CheckMemberName(std::string_view name, std::string_view dumpName)
{
    if (name.empty())
        return NameFault::Empty;
    if (name.size() >= kNameTooLong)
        return NameFault::TooLong;
    if (name.find_first_of("/\\:") != std::string_view::npos)
        return NameFault::Folder;
    if (std::ranges::any_of(name, IsUnusable))
        return NameFault::Character;
    if (name.ends_with('.') || name.ends_with(' '))
        return NameFault::Ending;
    if (IsDevice(name))
        return NameFault::Device;
    return EqualsIgnoringCase(name, dumpName) ? NameFault::DumpItself : NameFault::None;
}

} // namespace vireo
