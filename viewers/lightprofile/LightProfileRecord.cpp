#include "viewers/lightprofile/LightProfileRecord.h"

namespace vireo {

namespace {

template <typename Value>
std::optional<Value> Found(const HeaderValue<Value>& read)
{
    return read.found ? std::optional(read.value) : std::nullopt;
}

} // namespace

LightProfileRecord LightProfileRecord::Of(const TestFileHeader& header)
{
    LightProfileRecord record;
    record.isG3 = header.IsG3LightProfile();
    record.programName = header.ProgramName().value;
    record.programVersion = header.ProgramVersion().value;
    record.programBuild = header.ProgramBuild().value;
    record.date = header.Date().value;
    record.time = header.Time().value;
    record.scannerName = header.ScannerName().value;
    record.scannerID = header.ScannerID().value;
    record.firmwareRevision = Found(header.FirmwareRevision());
    record.firmwareBuild = Found(header.FirmwareBuild());
    record.generation = Found(header.Generation());
    record.scannerFamily = Found(header.ScannerFamily());
    record.resolution = Found(header.Resolution());
    record.colorScanner = header.ColorScanner().value;
    record.corrected = header.Corrected().value;
    record.isSigned32 = header.IsSigned32Profile().value;
    record.scannerWidth = Found(header.ScannerWidth());
    record.centerLines = Found(header.CenterLines());
    record.magnification = Found(header.Magnification());
    record.cameraCount = header.CameraCount().value;
    for (std::size_t camera = 0; camera < kCameras; ++camera)
        record.cameraPixels[camera] = header.CameraPixels(static_cast<int>(camera)).value;
    record.cameraUsed = Found(header.CameraUsed()).value_or(TestFileHeader::kAllCameras);
    record.color = Found(header.Color()).value_or(TestFileHeader::kColorGray);
    record.height = Found(header.Height());
    return record;
}

namespace {

void WriteScanner(const LightProfileRecord& record, TestFileHeader& header)
{
    if (record.firmwareRevision)
        header.WriteFirmwareRevision(*record.firmwareRevision);
    if (record.firmwareBuild)
        header.WriteFirmwareBuild(*record.firmwareBuild);
    if (record.generation)
        header.WriteGeneration(*record.generation);
    if (record.scannerFamily)
        header.WriteScannerFamily(*record.scannerFamily);
    if (record.resolution)
        header.WriteResolution(*record.resolution);
    header.WriteColorScanner(record.colorScanner);
    header.WriteCorrected(record.corrected);
    header.WriteIsSigned32Profile(record.isSigned32);
    if (record.scannerWidth)
        header.WriteScannerWidth(*record.scannerWidth);
}

void WriteCameras(const LightProfileRecord& record, TestFileHeader& header)
{
    if (record.centerLines)
        header.WriteCenterLines(*record.centerLines);
    if (record.magnification)
        header.WriteMagnification(*record.magnification);
    header.WriteCameraCount(record.cameraCount);
    for (std::size_t camera = 0; camera < LightProfileRecord::kCameras; ++camera)
        if (record.cameraPixels[camera] > 0)
            header.WriteCameraPixels(static_cast<int>(camera), record.cameraPixels[camera]);
    header.WriteCameraUsed(record.cameraUsed);
    header.WriteColor(record.color);
    if (record.height)
        header.WriteHeight(*record.height);
}

/// Free texts come last: the first occurrence of a key counts, wherever it stands.
void WriteTexts(const LightProfileRecord& record, TestFileHeader& header)
{
    const auto write = [&header](const std::string& text,
                           void (TestFileHeader::*writer)(std::string_view)) {
        if (!text.empty())
            (header.*writer)(text);
    };
    write(record.date, &TestFileHeader::WriteDate);
    write(record.time, &TestFileHeader::WriteTime);
    write(record.programName, &TestFileHeader::WriteProgramName);
    write(record.programVersion, &TestFileHeader::WriteProgramVersion);
    write(record.programBuild, &TestFileHeader::WriteProgramBuild);
    write(record.scannerID, &TestFileHeader::WriteScannerID);
    header.WriteScannerName(record.scannerName);
}

} // namespace

TestFileHeader LightProfileRecord::Header() const
{
    TestFileHeader header;
    if (isG3)
        header.WriteG3LightProfileTag();
    else
        header.WriteLightProfileTag();
    WriteScanner(*this, header);
    WriteCameras(*this, header);
    WriteTexts(*this, header);
    header.FixUpDataOffset();
    return header;
}

bool LightProfileRecord::IsInterleaved() const
{
    return color == TestFileHeader::kColorInterleaved || color == TestFileHeader::kColorAll;
}

} // namespace vireo
