// The writers of TestFileHeader, one per common key and section tag.

#include "platform/KnownFolders.h"
#include "platform/Text.h"
#include "testfile/HeaderNames.h"
#include "testfile/TestFileHeader.h"

#include <cassert>

namespace vireo {

namespace {

constexpr std::string_view kDataPointerPlaceholder = "DataPointer=0123456789\n";

/// The data offset as it stands in a file: 10 characters, right-aligned.
std::string DataOffsetText(std::size_t offset)
{
    return Format("%10lld", static_cast<long long>(offset));
}

std::string KitbagTagText(int dataOffset)
{
    return Format("%s\n%s%10d\n", std::string(tag::kKitbag).c_str(),
        std::string(key::kDataPointer).c_str(), dataOffset);
}

} // namespace

void TestFileHeader::WriteText(std::string_view text)
{
    m_text += text;
}

void TestFileHeader::WriteTag(std::string_view tag)
{
    m_text += tag;
    m_text += '\n';
}

void TestFileHeader::WriteTagAndPlaceholder(std::string_view tag)
{
    WriteTag(tag);
    m_text += kDataPointerPlaceholder;
}

void TestFileHeader::WriteLine(std::string_view key, std::string_view value)
{
    m_text += key;
    m_text += value;
    m_text += '\n';
}

void TestFileHeader::WriteLine(std::string_view key, int value)
{
    WriteLine(key, std::to_string(value));
}

void TestFileHeader::WriteLine(std::string_view key, const std::array<int, 3>& values)
{
    WriteLine(key, Format("%d %d %d", values[0], values[1], values[2]));
}

void TestFileHeader::WriteTruth(std::string_view key, bool value)
{
    WriteLine(key, value ? std::string_view("TRUE") : std::string_view("FALSE"));
}

void TestFileHeader::WriteLightProfileTag()
{
    WriteTagAndPlaceholder(tag::kLightProfile);
}

void TestFileHeader::WriteG3LightProfileTag()
{
    WriteTagAndPlaceholder(tag::kG3LightProfile);
}

void TestFileHeader::WriteLiveOscilloscopeTag()
{
    WriteTagAndPlaceholder(tag::kLiveOscilloscope);
}

void TestFileHeader::WriteOscilloscopeTag()
{
    WriteTagAndPlaceholder(tag::kOscilloscope);
}

void TestFileHeader::WriteMtfTag()
{
    WriteTag(tag::kMtf);
}

void TestFileHeader::WriteNoiseTestTag()
{
    WriteTagAndPlaceholder(tag::kNoiseTest);
}

void TestFileHeader::WriteStitchTestTag()
{
    WriteTagAndPlaceholder(tag::kStitchTest);
}

void TestFileHeader::WriteKestrel6SettingsTag()
{
    WriteTag(tag::kKestrel6Settings);
}

void TestFileHeader::WriteScannerName(std::string_view name)
{
    WriteLine(key::kScannerName, name);
}

void TestFileHeader::WriteScannerID(std::string_view id)
{
    WriteLine(key::kScannerID, id);
}

void TestFileHeader::WriteFirmwareRevision(int revision)
{
    WriteLine(key::kFirmwareRevision, revision);
}

void TestFileHeader::WriteFirmwareBuild(int build)
{
    WriteLine(key::kFirmwareBuild, build);
}

void TestFileHeader::WriteGeneration(int generation)
{
    WriteLine(key::kGeneration, generation);
}

void TestFileHeader::WriteScannerFamily(int family)
{
    WriteLine(key::kScannerFamily, family);
}

void TestFileHeader::WriteResolution(int dpi)
{
    WriteLine(key::kResolution, dpi);
}

void TestFileHeader::WriteColorScanner(bool color)
{
    WriteTruth(key::kColorScanner, color);
}

void TestFileHeader::WriteCorrected(bool corrected)
{
    WriteTruth(key::kCorrected, corrected);
}

void TestFileHeader::WriteIsSigned32Profile(bool isSigned32)
{
    WriteTruth(key::kIsSigned32Profile, isSigned32);
}

void TestFileHeader::WriteScannerWidth(int width)
{
    WriteLine(key::kScannerWidth, width);
}

void TestFileHeader::WriteCenterLines(const std::array<int, 3>& lines)
{
    WriteLine(key::kCenterLines, lines);
}

void TestFileHeader::WriteMagnification(const std::array<int, 3>& magnification)
{
    WriteLine(key::kMagnification, magnification);
}

void TestFileHeader::WriteCameraCount(int count)
{
    WriteLine(key::kCameraCount, count);
}

void TestFileHeader::WriteCameraPixels(int camera, int pixels)
{
    assert(camera >= 0 && camera < static_cast<int>(key::kCameraPixels.size()));
    WriteLine(key::kCameraPixels[static_cast<std::size_t>(camera)], pixels);
}

void TestFileHeader::WriteCameraUsed(int camera)
{
    assert(camera == kAllCameras || (camera >= 0 && camera <= 7));
    if (camera == kAllCameras)
        WriteLine(key::kCameraUsed, "All");
    else
        WriteLine(key::kCameraUsed, std::string(1, static_cast<char>('A' + camera)));
}

void TestFileHeader::WriteSelectedCamera(int camera)
{
    WriteLine(key::kSelectedCamera, camera);
}

void TestFileHeader::WriteColor(int color)
{
    switch (color) {
    case 0:
        return WriteLine(key::kColor, "Red");
    case 1:
        return WriteLine(key::kColor, "Green");
    case 2:
        return WriteLine(key::kColor, "Blue");
    case kColorAll:
    case kColorInterleaved:
        return WriteLine(key::kColor, "Red:Green:Blue");
    case kColorGray:
        return WriteLine(key::kColor, "Gray");
    default:
        return WriteLine(key::kColor, "NONE");
    }
}

void TestFileHeader::WriteHeight(int lines)
{
    WriteLine(key::kHeight, lines);
}

void TestFileHeader::WriteLength(int length)
{
    WriteLine(key::kLength, length);
}

void TestFileHeader::WriteWidth(int pixels)
{
    WriteLine(key::kWidth, pixels);
}

void TestFileHeader::WriteDate(std::string_view date)
{
    WriteLine(key::kDate, date);
}

void TestFileHeader::WriteTime(std::string_view time)
{
    WriteLine(key::kTime, time);
}

void TestFileHeader::WriteNoiseLimit(int percent)
{
    WriteLine(key::kNoiseLimit, percent);
}

void TestFileHeader::WriteProgramName(std::string_view name)
{
    WriteLine(key::kProgramName, name);
}

void TestFileHeader::WriteProgramVersion(std::string_view version)
{
    WriteLine(key::kProgramVersion, version);
}

void TestFileHeader::WriteProgramBuild(std::string_view build)
{
    WriteLine(key::kProgramBuild, build);
}

void TestFileHeader::WriteUnknownKestrel6Revision()
{
    WriteLine(key::kKestrel6Revision, "UNKNOWN");
    WriteLine(key::kKestrel6Build, "UNKNOWN");
}

void TestFileHeader::WriteProgramRevision(std::string_view revision)
{
    m_text += revision;
    m_text += '\n';
}

void TestFileHeader::WriteProgramRevision()
{
    const std::filesystem::path testProgram = LoadedModulePath("Kestr6.exe");
    WriteProgramRevisionOf(testProgram.empty() ? ProgramPath() : testProgram);
}

void TestFileHeader::WriteProgramRevisionOf(const std::filesystem::path& module)
{
    constexpr std::size_t kExtension = 3;
    constexpr std::size_t kMaxRevisionBytes = 99;
    std::filesystem::path::string_type name = module.native();
    if (name.size() < kExtension)
        return;
    name.resize(name.size() - kExtension);
    std::filesystem::path textFile = name;
    textFile += "txt";
    std::string revision;
    if (ReadWholeFile(textFile, kMaxRevisionBytes, revision) == FileStatus::Ok)
        WriteProgramRevision(revision);
}

void TestFileHeader::FixUpDataOffset()
{
    const std::size_t equals = m_text.find('=');
    if (equals == std::string::npos || m_text.size() - equals - 1 < kDataOffsetCharacters)
        return;
    m_text.replace(equals + 1, kDataOffsetCharacters, DataOffsetText(m_text.size()));
}

void TestFileHeader::AppendKitbagTag(int dataOffset)
{
    m_text += KitbagTagText(dataOffset);
}

void TestFileHeader::OverwriteKitbagTag(int dataOffset)
{
    const std::string tagText = KitbagTagText(dataOffset);
    m_text.replace(0, tagText.size(), tagText);
}

} // namespace vireo
