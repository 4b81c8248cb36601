// The readers of TestFileHeader, one per common key.

#include "platform/Text.h"
#include "testfile/HeaderNames.h"
#include "testfile/TestFileHeader.h"

#include <algorithm>
#include <cassert>
#include <optional>

namespace vireo {

namespace {

bool IsDigit(char character)
{
    return character >= '0' && character <= '9';
}

/// Takes one integer off the front of `text`, as scanf's %d does: blanks, a sign, digits.
std::optional<int> TakeInteger(std::string_view& text)
{
    std::size_t end = text.find_first_not_of(" \t\v\f");
    if (end == std::string_view::npos)
        return std::nullopt;
    if (text[end] == '+' || text[end] == '-')
        ++end;
    const std::size_t firstDigit = end;
    while (end < text.size() && IsDigit(text[end]))
        ++end;
    if (end == firstDigit)
        return std::nullopt;
    const int value = ParseInteger(text.substr(0, end));
    text.remove_prefix(end);
    return value;
}

/// Fills `values` as far as integers convert, and returns how many did.
std::size_t ParseIntegers(std::string_view text, std::array<int, 3>& values)
{
    std::size_t count = 0;
    while (count < values.size()) {
        const std::optional<int> value = TakeInteger(text);
        if (!value)
            break;
        values[count++] = *value;
    }
    return count;
}

int CameraUsedFromText(std::string_view text)
{
    if (text.starts_with("Al"))
        return TestFileHeader::kAllCameras;
    const char first = text.empty() ? '\0' : text.front();
    if (first >= 'A' && first <= 'D')
        return first - 'A';
    return ParseInteger(text);
}

int ColorFromText(std::string_view text)
{
    constexpr int kRed = 0;
    constexpr int kGreen = 1;
    constexpr int kBlue = 2;
    switch (text.empty() ? '\0' : text.front()) {
    case 'R':
        return text.size() > 4 && text[4] == 'G' ? TestFileHeader::kColorInterleaved : kRed;
    case 'G':
        return text.starts_with("Gray") ? TestFileHeader::kColorGray : kGreen;
    case 'B':
        return kBlue;
    case 'N': // "NONE" has always read back as green.
        return kGreen;
    default:
        return ParseInteger(text);
    }
}

} // namespace

HeaderValue<std::string_view> TestFileHeader::ValueOf(std::string_view key) const
{
    const std::size_t start = m_text.find(key);
    if (start == std::string::npos)
        return {};
    const std::string_view rest = std::string_view(m_text).substr(start + key.size());
    return {true, rest.substr(0, rest.find_first_of("\r\n"))};
}

HeaderValue<bool> TestFileHeader::ReadBool(std::string_view key) const
{
    const auto text = ValueOf(key);
    return {text.found, text.value.starts_with('T') || text.value.starts_with('t')};
}

HeaderValue<bool> TestFileHeader::ReadCapitalTruth(std::string_view key) const
{
    const auto text = ValueOf(key);
    return {text.found, text.value.starts_with('T')};
}

HeaderValue<std::string> TestFileHeader::ReadText(std::string_view key) const
{
    const auto text = ValueOf(key);
    return {text.found, std::string(text.value)};
}

HeaderValue<int> TestFileHeader::ReadInteger(std::string_view key) const
{
    const auto text = ValueOf(key);
    return {text.found, text.found ? ParseInteger(text.value) : 0};
}

HeaderValue<std::string> TestFileHeader::ScannerName() const
{
    // The name is searched without the '=', and its value begins 12 characters behind the start of
    // the key, whatever stands between.
    const std::size_t start = m_text.find(key::WithoutEquals(key::kScannerName));
    if (start == std::string::npos)
        return {};
    const std::string_view text = m_text;
    const std::string_view rest =
        text.substr(std::min(start + key::kScannerName.size(), text.size()));
    return {true, std::string(rest.substr(0, rest.find_first_of("\r\n")))};
}

HeaderValue<std::string> TestFileHeader::ScannerID() const
{
    return ReadText(key::kScannerID);
}

HeaderValue<int> TestFileHeader::FirmwareRevision() const
{
    return ReadInteger(key::kFirmwareRevision);
}

HeaderValue<int> TestFileHeader::FirmwareBuild() const
{
    return ReadInteger(key::kFirmwareBuild);
}

HeaderValue<int> TestFileHeader::Generation() const
{
    return ReadInteger(key::kGeneration);
}

HeaderValue<int> TestFileHeader::ScannerFamily() const
{
    return ReadInteger(key::kScannerFamily);
}

HeaderValue<int> TestFileHeader::Resolution() const
{
    return ReadInteger(key::kResolution);
}

HeaderValue<bool> TestFileHeader::ColorScanner() const
{
    return ReadCapitalTruth(key::kColorScanner);
}

HeaderValue<bool> TestFileHeader::Corrected() const
{
    return ReadCapitalTruth(key::kCorrected);
}

HeaderValue<bool> TestFileHeader::IsSigned32Profile() const
{
    const HeaderValue<bool> truth = ReadBool(key::kIsSigned32Profile);
    return {truth.value, truth.value};
}

HeaderValue<int> TestFileHeader::ScannerWidth() const
{
    return ReadInteger(key::kScannerWidth);
}

HeaderValue<std::array<int, 3>> TestFileHeader::CenterLines() const
{
    HeaderValue<std::array<int, 3>> lines;
    lines.found = ParseIntegers(ValueOf(key::kCenterLines).value, lines.value) == 3;
    if (!lines.found)
        lines.value = {};
    return lines;
}

HeaderValue<std::array<int, 3>> TestFileHeader::Magnification() const
{
    const auto text = ValueOf(key::kMagnification);
    HeaderValue<std::array<int, 3>> magnification{text.found, {}};
    ParseIntegers(text.value, magnification.value);
    return magnification;
}

HeaderValue<int> TestFileHeader::CameraCount() const
{
    return ReadInteger(key::kCameraCount);
}

HeaderValue<int> TestFileHeader::CameraPixels(int camera) const
{
    assert(camera >= 0 && camera < static_cast<int>(key::kCameraPixels.size()));
    return ReadInteger(key::kCameraPixels[static_cast<std::size_t>(camera)]);
}

HeaderValue<int> TestFileHeader::CameraUsed() const
{
    const auto text = ValueOf(key::kCameraUsed);
    return {text.found, CameraUsedFromText(text.value)};
}

HeaderValue<int> TestFileHeader::SelectedCamera() const
{
    return ReadInteger(key::kSelectedCamera);
}

HeaderValue<int> TestFileHeader::Color() const
{
    const auto text = ValueOf(key::kColor);
    return {text.found, ColorFromText(text.value)};
}

HeaderValue<int> TestFileHeader::Height() const
{
    return ReadInteger(key::kHeight);
}

HeaderValue<int> TestFileHeader::Length() const
{
    return ReadInteger(key::kLength);
}

HeaderValue<int> TestFileHeader::Width() const
{
    return ReadInteger(key::kWidth);
}

HeaderValue<std::string> TestFileHeader::Date() const
{
    return ReadText(key::kDate);
}

HeaderValue<std::string> TestFileHeader::Time() const
{
    return ReadText(key::kTime);
}

HeaderValue<int> TestFileHeader::NoiseLimit() const
{
    return ReadInteger(key::kNoiseLimit);
}

HeaderValue<std::string> TestFileHeader::ProgramName() const
{
    return ReadText(key::kProgramName);
}

HeaderValue<std::string> TestFileHeader::ProgramVersion() const
{
    return ReadText(key::kProgramVersion);
}

HeaderValue<std::string> TestFileHeader::ProgramBuild() const
{
    return ReadText(key::kProgramBuild);
}

HeaderValue<std::string> TestFileHeader::Kestrel6Revision() const
{
    return ReadText(key::kKestrel6Revision);
}

HeaderValue<std::string> TestFileHeader::Kestrel6Build() const
{
    return ReadText(key::kKestrel6Build);
}

HeaderValue<bool> TestFileHeader::UsesDefaultDirectory() const
{
    return ReadBool(key::kUsesDefaultDirectory);
}

} // namespace vireo
