#include "testfile/TestFileHeader.h"

#include "platform/Text.h"
#include "testfile/HeaderNames.h"

#include <algorithm>
#include <span>
#include <vector>

namespace vireo {

namespace {

// Readers mark their buffer with this byte to see whether anything was read, so a file that begins
// with it counts as unread.
constexpr std::uint8_t kUnreadMark = 0xCD;

std::string_view UpToZero(std::string_view text)
{
    return text.substr(0, text.find('\0'));
}

/// The text of a file's first bytes, at most as many as the span holds.
std::string_view ReadStart(const PositionalFile& file, std::span<std::uint8_t> buffer)
{
    const std::size_t count = file.ReadAt(0, buffer);
    return {reinterpret_cast<const char*>(buffer.data()), count};
}

/// The result of checking a data offset against the file it stands in.
HeaderResult CheckDataOffset(std::int32_t offset, std::uint64_t fileSize)
{
    if (offset <= 0)
        return HeaderResult::BadDataPointer;
    if (static_cast<std::uint64_t>(offset) > fileSize)
        return HeaderResult::DataPointerBeyondFile;
    if (static_cast<std::size_t>(offset) > TestFileHeader::kMaxHeaderBytes)
        return HeaderResult::TooLong;
    return HeaderResult::Ok;
}

} // namespace

std::string_view Describe(HeaderResult result)
{
    switch (result) {
    case HeaderResult::Ok:
        return "No error";
    case HeaderResult::NothingRead:
        return "The file is empty or cannot be read";
    case HeaderResult::NoDataPointer:
        return "The header has no data offset";
    case HeaderResult::BadDataPointer:
        return "The header's data offset is not a positive number";
    case HeaderResult::DataPointerBeyondFile:
        return "The header's data offset lies behind the end of the file";
    case HeaderResult::TooLong:
        return "The header is longer than 1 MiB";
    }
    return "Unknown header error";
}

void TestFileHeader::SetText(std::string_view text)
{
    m_text = UpToZero(text);
}

HeaderResult TestFileHeader::Load(const PositionalFile& file)
{
    m_text.clear();

    std::array<std::uint8_t, kProbeBytes> probeBytes{};
    const std::string_view probe = ReadStart(file, probeBytes);
    if (probe.empty() || probeBytes[0] == kUnreadMark)
        return HeaderResult::NothingRead;

    TestFileHeader start;
    start.SetText(probe);
    if (start.Text().find('=') == std::string::npos)
        return HeaderResult::NoDataPointer;
    const std::int32_t offset = start.DataOffset();
    if (const HeaderResult result = CheckDataOffset(offset, file.Size());
        result != HeaderResult::Ok)
        return result;

    std::vector<std::uint8_t> headerBytes(static_cast<std::size_t>(offset));
    SetText(ReadStart(file, headerBytes));
    return HeaderResult::Ok;
}

void TestFileHeader::LoadProbe(const PositionalFile& file)
{
    std::array<std::uint8_t, kProbeBytes> bytes{};
    SetText(ReadStart(file, bytes));
}

void TestFileHeader::LoadKeys(const PositionalFile& file, std::string_view end)
{
    std::vector<std::uint8_t> bytes(
        static_cast<std::size_t>(std::min<std::uint64_t>(file.Size(), kMaxHeaderBytes)));
    const std::string_view text = ReadStart(file, bytes);
    SetText(end.empty() ? text : text.substr(0, text.find(end)));
}

std::int32_t TestFileHeader::DataOffset() const
{
    const std::size_t equals = m_text.find('=');
    if (equals == std::string::npos)
        return 0;
    return ParseInteger(std::string_view(m_text).substr(equals + 1, kDataOffsetCharacters));
}

bool TestFileHeader::IsLightProfile() const
{
    return HasTag(tag::kLightProfile);
}

bool TestFileHeader::IsG3LightProfile() const
{
    return HasTag(tag::kG3LightProfile);
}

bool TestFileHeader::IsLiveOscilloscope() const
{
    return HasTag(tag::kLiveOscilloscope);
}

bool TestFileHeader::IsOscilloscope() const
{
    return HasTag(tag::kOscilloscope);
}

bool TestFileHeader::IsMtf() const
{
    return HasTag(tag::kMtf);
}

bool TestFileHeader::IsNoiseTest() const
{
    return HasTag(tag::kNoiseTest);
}

bool TestFileHeader::IsStitchTest() const
{
    return HasTag(tag::kStitchTest);
}

bool TestFileHeader::IsKitbag() const
{
    return HasTag(tag::kKitbag);
}

bool TestFileHeader::IsKestrel6Settings() const
{
    return HasTag(tag::kKestrel6Settings);
}

bool TestFileHeader::IsIsKestrel6Settings() const
{
    return HasTag(tag::kIsKestrel6Settings);
}

bool TestFileHeader::IsAdjustCenterCCD() const
{
    return HasTag(tag::kAdjustCenterCcd) || HasTag(tag::kScanLinePositioning);
}

bool TestFileHeader::IsVerticalCameraVerification() const
{
    return HasTag(tag::kVerticalCameraVerification) || HasTag(tag::kMirrorCarriageAdjustment);
}

bool TestFileHeader::IsStarTest() const
{
    return HasTag(tag::kStarTest);
}

bool TestFileHeader::IsTonalResolution() const
{
    return HasTag(tag::kTonalResolution);
}

} // namespace vireo
