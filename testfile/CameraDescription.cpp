#include "testfile/CameraDescription.h"

#include "platform/Text.h"

#include <algorithm>

namespace vireo {

namespace {

constexpr std::string_view kMark = "TQX";

void SkipBlanks(std::string_view& text)
{
    text.remove_prefix(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
}

bool Skip(std::string_view& text, std::string_view word)
{
    if (!text.starts_with(word))
        return false;
    text.remove_prefix(word.size());
    return true;
}

std::optional<std::int32_t> TakeInteger(std::string_view& text)
{
    SkipBlanks(text);
    const std::size_t sign = !text.empty() && (text[0] == '-' || text[0] == '+') ? 1 : 0;
    const std::size_t end = std::min(text.find_first_not_of("0123456789", sign), text.size());
    if (end == sign)
        return std::nullopt;
    const std::int32_t value = ParseInteger(text.substr(0, end));
    text.remove_prefix(end);
    return value;
}

} // namespace

std::optional<CameraCounts> ParseCameraDescription(std::string_view description)
{
    if (!Skip(description, kMark))
        return std::nullopt;
    CameraCounts counts{};
    char name[] = "m_iA=";
    for (std::int32_t& count : counts) {
        SkipBlanks(description);
        if (!Skip(description, name))
            return std::nullopt;
        const std::optional<std::int32_t> value = TakeInteger(description);
        if (!value)
            return std::nullopt;
        count = *value;
        ++name[3];
    }
    return counts;
}

std::string CameraDescription(const CameraCounts& counts)
{
    std::string text(kMark);
    char letter = 'A';
    for (const std::int32_t count : counts)
        text += Format("\nm_i%c=%d", letter++, count);
    return text;
}

} // namespace vireo
