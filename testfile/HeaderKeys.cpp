#include "testfile/HeaderKeys.h"

#include "testfile/HeaderNames.h"

#include <algorithm>

namespace vireo {

namespace {

struct KeyRow {
    std::string_view key;
    HeaderKeyValue (*value)(const TestFileHeader&);
};

template <auto Reader>
HeaderKeyValue ValueBy(const TestFileHeader& header)
{
    return (header.*Reader)().value;
}

template <int Camera>
HeaderKeyValue CameraPixelsOf(const TestFileHeader& header)
{
    return header.CameraPixels(Camera).value;
}

constexpr KeyRow kRows[] = {
    {key::kScannerName, ValueBy<&TestFileHeader::ScannerName>},
    {key::kScannerID, ValueBy<&TestFileHeader::ScannerID>},
    {key::kFirmwareRevision, ValueBy<&TestFileHeader::FirmwareRevision>},
    {key::kFirmwareBuild, ValueBy<&TestFileHeader::FirmwareBuild>},
    {key::kGeneration, ValueBy<&TestFileHeader::Generation>},
    {key::kScannerFamily, ValueBy<&TestFileHeader::ScannerFamily>},
    {key::kResolution, ValueBy<&TestFileHeader::Resolution>},
    {key::kColorScanner, ValueBy<&TestFileHeader::ColorScanner>},
    {key::kCorrected, ValueBy<&TestFileHeader::Corrected>},
    {key::kIsSigned32Profile, ValueBy<&TestFileHeader::IsSigned32Profile>},
    {key::kScannerWidth, ValueBy<&TestFileHeader::ScannerWidth>},
    {key::kCenterLines, ValueBy<&TestFileHeader::CenterLines>},
    {key::kMagnification, ValueBy<&TestFileHeader::Magnification>},
    {key::kCameraCount, ValueBy<&TestFileHeader::CameraCount>},
    {key::kCameraPixels[0], CameraPixelsOf<0>},
    {key::kCameraPixels[1], CameraPixelsOf<1>},
    {key::kCameraPixels[2], CameraPixelsOf<2>},
    {key::kCameraPixels[3], CameraPixelsOf<3>},
    {key::kCameraPixels[4], CameraPixelsOf<4>},
    {key::kCameraPixels[5], CameraPixelsOf<5>},
    {key::kCameraPixels[6], CameraPixelsOf<6>},
    {key::kCameraPixels[7], CameraPixelsOf<7>},
    {key::kCameraUsed, ValueBy<&TestFileHeader::CameraUsed>},
    {key::kSelectedCamera, ValueBy<&TestFileHeader::SelectedCamera>},
    {key::kColor, ValueBy<&TestFileHeader::Color>},
    {key::kHeight, ValueBy<&TestFileHeader::Height>},
    {key::kLength, ValueBy<&TestFileHeader::Length>},
    {key::kWidth, ValueBy<&TestFileHeader::Width>},
    {key::kDate, ValueBy<&TestFileHeader::Date>},
    {key::kTime, ValueBy<&TestFileHeader::Time>},
    {key::kNoiseLimit, ValueBy<&TestFileHeader::NoiseLimit>},
    {key::kProgramName, ValueBy<&TestFileHeader::ProgramName>},
    {key::kProgramVersion, ValueBy<&TestFileHeader::ProgramVersion>},
    {key::kProgramBuild, ValueBy<&TestFileHeader::ProgramBuild>},
    {key::kKestrel6Revision, ValueBy<&TestFileHeader::Kestrel6Revision>},
    {key::kKestrel6Build, ValueBy<&TestFileHeader::Kestrel6Build>},
    {key::kUsesDefaultDirectory, ValueBy<&TestFileHeader::UsesDefaultDirectory>},
};

/// The text by which a key's reader finds it: the scanner's name is searched without its '='.
std::string_view SearchText(std::string_view key)
{
    return key == key::kScannerName ? key::WithoutEquals(key) : key;
}

} // namespace

std::vector<HeaderKey> ListHeaderKeys(const TestFileHeader& header)
{
    std::vector<HeaderKey> keys;
    for (const KeyRow& row : kRows) {
        if (header.HasKey(SearchText(row.key)))
            keys.push_back({key::WithoutEquals(row.key), row.value(header)});
    }
    return keys;
}

bool IsHeaderKeyName(std::string_view name)
{
    return std::ranges::any_of(
        kRows, [name](const KeyRow& row) { return key::WithoutEquals(row.key) == name; });
}

} // namespace vireo
