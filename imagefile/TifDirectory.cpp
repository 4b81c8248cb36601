#include "imagefile/TifDirectory.h"

#include <cassert>
#include <utility>

namespace vireo {

namespace {

constexpr std::size_t kFieldBytes = 4;

void PadToEven(CTIFOutput& output)
{
    constexpr std::uint8_t kZero[] = {0};
    if (output.Position() % 2 != 0)
        output.Write(kZero);
}

/// What is written once the file has grown too large never reaches it.
std::uint32_t OffsetAt(std::uint64_t position)
{
    return static_cast<std::uint32_t>(position);
}

} // namespace

void AppendShort(std::vector<std::uint8_t>& bytes, std::uint16_t value)
{
    bytes.push_back(static_cast<std::uint8_t>(value));
    bytes.push_back(static_cast<std::uint8_t>(value >> 8));
}

void AppendLong(std::vector<std::uint8_t>& bytes, std::uint32_t value)
{
    AppendShort(bytes, static_cast<std::uint16_t>(value));
    AppendShort(bytes, static_cast<std::uint16_t>(value >> 16));
}

void TifDirectory::Add(
    TifTag tag, TifType type, std::uint32_t count, std::vector<std::uint8_t> value)
{
    assert(m_entries.empty() || m_entries.back().tag < tag);
    m_entries.push_back({tag, type, count, std::move(value)});
}

void TifDirectory::AddShorts(TifTag tag, std::span<const std::uint16_t> values)
{
    std::vector<std::uint8_t> bytes;
    for (const std::uint16_t value : values)
        AppendShort(bytes, value);
    Add(tag, TifType::Short, static_cast<std::uint32_t>(values.size()), std::move(bytes));
}

void TifDirectory::AddLongs(TifTag tag, std::span<const std::uint32_t> values)
{
    std::vector<std::uint8_t> bytes;
    bytes.reserve(values.size() * kFieldBytes);
    for (const std::uint32_t value : values)
        AppendLong(bytes, value);
    Add(tag, TifType::Long, static_cast<std::uint32_t>(values.size()), std::move(bytes));
}

void TifDirectory::AddRational(TifTag tag, std::uint32_t numerator, std::uint32_t denominator)
{
    std::vector<std::uint8_t> bytes;
    AppendLong(bytes, numerator);
    AppendLong(bytes, denominator);
    Add(tag, TifType::Rational, 1, std::move(bytes));
}

void TifDirectory::AddText(TifTag tag, std::string_view text)
{
    std::vector<std::uint8_t> bytes(text.begin(), text.end());
    if (bytes.empty() || bytes.back() != 0)
        bytes.push_back(0);
    const auto count = static_cast<std::uint32_t>(bytes.size());
    Add(tag, TifType::Ascii, count, std::move(bytes));
}

void TifDirectory::AddWritten(TifTag tag, std::uint32_t offset, std::uint32_t bytes)
{
    Add(tag, TifType::Undefined, bytes, {});
    m_entries.back().offset = offset;
}

std::uint32_t TifDirectory::Write(CTIFOutput& output)
{
    for (Entry& entry : m_entries) {
        if (entry.value.size() <= kFieldBytes)
            continue;
        PadToEven(output);
        entry.offset = OffsetAt(output.Position());
        output.Write(entry.value);
    }
    PadToEven(output);
    const std::uint32_t offset = OffsetAt(output.Position());
    std::vector<std::uint8_t> bytes;
    AppendShort(bytes, static_cast<std::uint16_t>(m_entries.size()));
    for (const Entry& entry : m_entries) {
        AppendShort(bytes, static_cast<std::uint16_t>(entry.tag));
        AppendShort(bytes, static_cast<std::uint16_t>(entry.type));
        AppendLong(bytes, entry.count);
        if (entry.value.empty() || entry.value.size() > kFieldBytes) {
            AppendLong(bytes, entry.offset);
            continue;
        }
        bytes.insert(bytes.end(), entry.value.begin(), entry.value.end());
        bytes.resize(bytes.size() + kFieldBytes - entry.value.size());
    }
    AppendLong(bytes, 0); // There is no further page.
    output.Write(bytes);
    return offset;
}

} // namespace vireo
