#pragma once

#include <cstdarg>
#include <cstdint>
#include <string>
#include <string_view>

namespace vireo {

/// Turns 8-bit text of Windows code page 1252, the text of all our files, into UTF-8. The five
/// codes that the page leaves open become the control characters of the same number, as Windows
/// does, so that the way back gives the same bytes.
std::string Utf8FromWindows1252(std::string_view text);

/// Turns UTF-8 into Windows-1252; characters outside the page, and bytes that are not UTF-8,
/// become '?'.
std::string Windows1252FromUtf8(std::string_view utf8);

/// Whether a text is UTF-8: no byte stands alone, no character is longer than it need be, and none
/// is a half of a pair or beyond U+10FFFF.
bool IsUtf8(std::string_view text);

/// printf formatting into a string that does not depend on the user's locale: the decimal point is
/// always '.'.
#if defined(__MINGW32__)
__attribute__((format(gnu_printf, 1, 2)))
#elif defined(__GNUC__)
__attribute__((format(printf, 1, 2)))
#endif
std::string
Format(const char* format, ...);

/// The C library's decimal conversion: leading blanks are skipped, a sign is allowed, conversion
/// stops at the first character that is not a digit, and no digits give 0. Values beyond 32 bits
/// become the nearest 32-bit value.
std::int32_t ParseInteger(std::string_view text);

/// The C library's conversion to double in the C locale: leading blanks are skipped and the longest
/// valid number is taken; no number gives 0.
double ParseDouble(std::string_view text);

/// With ASCII letters in lower case, in any locale.
std::string LowerAscii(std::string_view text);

/// Compares ASCII letters without regard to case, in any locale.
bool EqualsIgnoringCase(std::string_view left, std::string_view right);

/// Without leading and trailing blanks and tabs.
std::string_view Trimmed(std::string_view text);

} // namespace vireo
