#include "platform/NumberScanner.h"

#include "platform/Text.h"

#include <charconv>
#include <limits>
#include <optional>

namespace vireo {

/// Goes on with an integer of many digits, beginning behind `digits`, its first ones; or with none.
std::int32_t NumberScanner::ReadLongInteger(bool isNegative, std::uint32_t digits)
{
    constexpr std::int64_t kLargest = std::numeric_limits<std::int32_t>::max();
    const std::int64_t limit = isNegative ? kLargest + 1 : kLargest;
    std::int64_t value = digits;
    for (; m_next != m_end && DigitOf(*m_next) < kBase; ++m_next)
        value = std::min<std::int64_t>(value * kBase + DigitOf(*m_next), limit);
    return static_cast<std::int32_t>(isNegative ? -value : value);
}

namespace {

struct ScannedFloat {
    float value = 0.0F;
    const char* end = nullptr;
};

/// Reads a number as the standard's locale-free reader does, `prefix` characters of it being known.
std::optional<ScannedFloat> ScanAs(
    std::chars_format format, const char* start, std::size_t prefix, const char* end)
{
    const char* const digits = start + prefix;
    // The sign has been taken, and a second one is none.
    if (digits == end || *digits == '-')
        return std::nullopt;
    ScannedFloat scanned;
    const auto [stop, error] = std::from_chars(digits, end, scanned.value, format);
    if (error == std::errc::invalid_argument)
        return std::nullopt;
    // No float holds it: it is too large or too near to 0, and the reader does not say which.
    if (error == std::errc::result_out_of_range)
        scanned.value = ParseDouble({start, static_cast<std::size_t>(stop - start)}) > 1.0
            ? std::numeric_limits<float>::infinity()
            : 0.0F;
    scanned.end = stop;
    return scanned;
}

std::optional<ScannedFloat> ScanAny(const char* next, const char* end)
{
    constexpr std::size_t kHexadecimalPrefix = 2;
    const bool isHexadecimal =
        end - next > 2 && next[0] == '0' && (next[1] == 'x' || next[1] == 'X');
    if (isHexadecimal)
        if (const auto scanned = ScanAs(std::chars_format::hex, next, kHexadecimalPrefix, end))
            return scanned;
    return ScanAs(std::chars_format::general, next, 0, end);
}

} // namespace

float NumberScanner::ReadAnyFloat()
{
    const std::optional<ScannedFloat> scanned = ScanAny(m_next, m_end);
    // What is no number stops everything behind it.
    m_next = scanned ? scanned->end : m_end;
    return scanned ? scanned->value : 0.0F;
}

} // namespace vireo
