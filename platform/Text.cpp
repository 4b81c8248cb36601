#include "platform/Text.h"

#include "platform/ScopedCLocale.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>

namespace vireo {

namespace {

/// The characters of codes 0x80 to 0x9F; all other codes stand for the character of their number.
constexpr std::array<std::uint16_t, 32> kWindows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, //
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F, //
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, //
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178, //
};

/// How many bytes from `start` on are ASCII. Eight at a time: most files hold nothing else.
std::size_t AsciiRun(std::string_view text, std::size_t start)
{
    constexpr std::uint64_t kHighBits = 0x8080808080808080;
    std::size_t end = start;
    while (text.size() - end >= sizeof(std::uint64_t)) {
        std::uint64_t eight = 0;
        std::memcpy(&eight, text.data() + end, sizeof(eight));
        if ((eight & kHighBits) != 0)
            break;
        end += sizeof(eight);
    }
    while (end < text.size() && static_cast<unsigned char>(text[end]) < 0x80)
        ++end;
    return end - start;
}

/// Appends a character between U+0080 and U+FFFF.
void AppendUtf8(std::string& utf8, unsigned character)
{
    if (character < 0x800) {
        utf8 += static_cast<char>(0xC0 | (character >> 6));
    } else {
        utf8 += static_cast<char>(0xE0 | (character >> 12));
        utf8 += static_cast<char>(0x80 | ((character >> 6) & 0x3F));
    }
    utf8 += static_cast<char>(0x80 | (character & 0x3F));
}

} // namespace

std::string Utf8FromWindows1252(std::string_view text)
{
    const std::size_t ascii = AsciiRun(text, 0);
    std::string utf8(text.substr(0, ascii));
    if (ascii == text.size())
        return utf8;

    utf8.reserve(text.size() + text.size() / 2);
    for (std::size_t i = ascii; i < text.size();) {
        const unsigned code = static_cast<unsigned char>(text[i++]);
        AppendUtf8(utf8, code < 0xA0 ? kWindows1252[code - 0x80] : code);
        const std::size_t run = AsciiRun(text, i);
        utf8.append(text, i, run);
        i += run;
    }
    return utf8;
}

namespace {

struct Utf8Character {
    std::uint32_t character = 0;
    std::size_t length = 0; ///< Bytes used; 0 when they are no character.
};

/// Length of the sequence that a lead byte announces; 0 for a byte that cannot lead one.
std::size_t SequenceLength(unsigned lead)
{
    if (lead < 0xC2)
        return 0; // A continuation byte, or the start of an overlong form.
    if (lead < 0xE0)
        return 2;
    if (lead < 0xF0)
        return 3;
    return lead < 0xF5 ? 4 : 0;
}

/// Decodes the first character of a text that starts with a byte from 0x80 up.
Utf8Character DecodeMultiByte(std::string_view text)
{
    const unsigned lead = static_cast<unsigned char>(text.front());
    const std::size_t length = SequenceLength(lead);
    if (length == 0 || length > text.size())
        return {};
    std::uint32_t character = lead & (0x7FU >> length);
    for (const char next : text.substr(1, length - 1)) {
        const unsigned byte = static_cast<unsigned char>(next);
        if ((byte & 0xC0) != 0x80)
            return {};
        character = (character << 6) | (byte & 0x3F);
    }
    const bool overlong =
        (length == 3 && character < 0x800) || (length == 4 && character < 0x10000);
    const bool surrogate = character >= 0xD800 && character < 0xE000;
    if (overlong || surrogate || character > 0x10FFFF)
        return {};
    return {character, length};
}

/// The code of a character from U+0080 up, '?' for one that the page lacks.
char Windows1252Code(std::uint32_t character)
{
    if (character >= 0xA0 && character <= 0xFF)
        return static_cast<char>(character);
    const auto found = std::find(kWindows1252.begin(), kWindows1252.end(), character);
    return found == kWindows1252.end()
        ? '?'
        : static_cast<char>(0x80 + std::distance(kWindows1252.begin(), found));
}

} // namespace

bool IsUtf8(std::string_view text)
{
    constexpr unsigned char kFirstBeyondAscii = 0x80;
    while (!text.empty()) {
        const bool isAscii = static_cast<unsigned char>(text.front()) < kFirstBeyondAscii;
        const std::size_t length = isAscii ? 1 : DecodeMultiByte(text).length;
        if (length == 0)
            return false;
        text.remove_prefix(length);
    }
    return true;
}

std::string Windows1252FromUtf8(std::string_view utf8)
{
    std::string text;
    text.reserve(utf8.size());
    for (std::size_t i = 0; i < utf8.size();) {
        const std::size_t run = AsciiRun(utf8, i);
        text.append(utf8, i, run);
        i += run;
        if (i == utf8.size())
            break;
        const Utf8Character next = DecodeMultiByte(utf8.substr(i));
        text += next.length == 0 ? '?' : Windows1252Code(next.character);
        i += std::max<std::size_t>(next.length, 1);
    }
    return text;
}

namespace {

#if defined(__MINGW32__)
__attribute__((format(gnu_printf, 1, 0)))
#elif defined(__GNUC__)
__attribute__((format(printf, 1, 0)))
#endif
std::string
FormatList(const char* format, va_list arguments)
{
    const ScopedCLocale locale;
    std::array<char, 256> shortText;
    va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(shortText.data(), shortText.size(), format, arguments);
    std::string text;
    if (length >= 0 && static_cast<std::size_t>(length) < shortText.size()) {
        text.assign(shortText.data(), static_cast<std::size_t>(length));
    } else if (length >= 0) {
        text.resize(static_cast<std::size_t>(length));
        std::vsnprintf(text.data(), text.size() + 1, format, again);
    }
    va_end(again);
    return text;
}

} // namespace

std::string Format(const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    std::string text = FormatList(format, arguments);
    va_end(arguments);
    return text;
}

namespace {

/// What isspace() of the C locale says.
bool IsSpace(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

std::string_view WithoutLeadingSpace(std::string_view text)
{
    while (!text.empty() && IsSpace(text.front()))
        text.remove_prefix(1);
    return text;
}

/// Takes a sign off the front of a number; whether it was a minus.
bool TakeSign(std::string_view& number)
{
    if (number.empty() || (number.front() != '-' && number.front() != '+'))
        return false;
    const bool negative = number.front() == '-';
    number.remove_prefix(1);
    return negative;
}

} // namespace

std::int32_t ParseInteger(std::string_view text)
{
    std::string_view digits = WithoutLeadingSpace(text);
    const bool negative = TakeSign(digits);
    constexpr std::int64_t kLargest = std::numeric_limits<std::int32_t>::max();
    const std::int64_t limit = negative ? kLargest + 1 : kLargest;
    std::int64_t value = 0;
    for (const char digit : digits) {
        if (digit < '0' || digit > '9')
            break;
        value = std::min<std::int64_t>(value * 10 + (digit - '0'), limit);
    }
    return static_cast<std::int32_t>(negative ? -value : value);
}

namespace {

/// What follows "0x" of a hexadecimal number; empty when the text is none.
std::string_view HexadecimalDigits(std::string_view number)
{
    if (number.size() < 3 || number[0] != '0' || (number[1] != 'x' && number[1] != 'X'))
        return {};
    return number.substr(2);
}

/// Reads a number without sign; `value` is left alone when there is none.
std::from_chars_result ReadUnsigned(
    std::string_view number, std::chars_format format, double& value)
{
    if (number.empty() || number.front() == '-')
        return {number.data(), std::errc::invalid_argument};
    return std::from_chars(number.data(), number.data() + number.size(), value, format);
}

/// Infinity or the nearest tiny number, which the standard's locale-free reader does not tell.
double OutOfRangeValue(std::string_view number)
{
    const ScopedCLocale locale;
    return std::strtod(std::string(number).c_str(), nullptr);
}

} // namespace

double ParseDouble(std::string_view text)
{
    std::string_view number = WithoutLeadingSpace(text);
    const bool negative = TakeSign(number);
    double value = 0;
    auto result = ReadUnsigned(HexadecimalDigits(number), std::chars_format::hex, value);
    if (result.ec == std::errc::invalid_argument)
        result = ReadUnsigned(number, std::chars_format::general, value);
    if (result.ec == std::errc::invalid_argument)
        return 0; // Not even the sign of a text such as "-x" counts.
    if (result.ec == std::errc::result_out_of_range) {
        const auto length = static_cast<std::size_t>(result.ptr - number.data());
        value = OutOfRangeValue(number.substr(0, length));
    }
    return negative ? -value : value;
}

namespace {

char LowerAscii(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

} // namespace

std::string LowerAscii(std::string_view text)
{
    std::string lower(text);
    for (char& character : lower)
        character = LowerAscii(character);
    return lower;
}

bool EqualsIgnoringCase(std::string_view left, std::string_view right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
        [](char a, char b) { return LowerAscii(a) == LowerAscii(b); });
}

std::string_view Trimmed(std::string_view text)
{
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

} // namespace vireo
