#include "testfile/HeaderMeanings.h"

#include "platform/Text.h"
#include "testfile/HeaderNames.h"

namespace vireo {

namespace {

std::string CameraText(int camera)
{
    if (camera == TestFileHeader::kAllCameras)
        return "all cameras";
    constexpr int kCameras = 8;
    return camera >= 0 && camera < kCameras ? Format("camera %c", 'A' + camera)
                                            : Format("camera number %d", camera);
}

std::string CameraUsedMeaning(int camera)
{
    return "Taken by " + CameraText(camera);
}

std::string SelectedCameraMeaning(int camera)
{
    return "Selected: " + CameraText(camera);
}

std::string ColorMeaning(int color)
{
    constexpr const char* kColours[] = {"red", "green", "blue"};
    if (color >= 0 && color < 3)
        return std::string("Color of the data: ") + kColours[color];
    if (color == TestFileHeader::kColorGray)
        return "Color of the data: gray";
    if (color == TestFileHeader::kColorAll || color == TestFileHeader::kColorInterleaved)
        return "Color of the data: red, green and blue";
    return Format("Color of the data: number %d", color);
}

std::string ScannerWidthMeaning(int width)
{
    constexpr double kPerInch = 1200.0;
    constexpr double kMillimetresPerInch = 25.4;
    const double inches = width / kPerInch;
    return Format("Scan width: %.2f in, %.1f mm", inches, inches * kMillimetresPerInch);
}

/// What a key of whole numbers means.
struct NumberRow {
    std::string_view key;
    std::string (*meaning)(int);
};
constexpr NumberRow kNumbers[] = {
    {key::kCameraUsed, CameraUsedMeaning},
    {key::kSelectedCamera, SelectedCameraMeaning},
    {key::kColor, ColorMeaning},
    {key::kScannerWidth, ScannerWidthMeaning},
};

struct TruthRow {
    std::string_view key;
    const char* whenTrue;
    const char* whenFalse;
};
constexpr TruthRow kTruths[] = {
    {key::kColorScanner, "The scanner sees colors", "The scanner sees gray only"},
    {key::kCorrected, "Light and dark are corrected", "Light and dark are not corrected"},
    {key::kIsSigned32Profile, "Samples are signed 32-bit numbers", "Samples are bytes"},
    {key::kUsesDefaultDirectory, "Continuous scans go to the usual folder",
        "Continuous scans go to a folder of their own"},
};

struct TextRow {
    std::string_view key;
    const char* meaning;
};
constexpr TextRow kTexts[] = {
    {key::kScannerName, "Name of the scanner"},
    {key::kScannerID, "Number of the scanner"},
    {key::kFirmwareRevision, "Revision of the scanner's firmware"},
    {key::kFirmwareBuild, "Build of the scanner's firmware"},
    {key::kGeneration, "Generation of the scanner"},
    {key::kScannerFamily, "Family of the scanner"},
    {key::kResolution, "Resolution in dots per inch"},
    {key::kCenterLines, "Center lines: red, green, blue"},
    {key::kMagnification, "Magnification: red, green, blue"},
    {key::kCameraCount, "Number of cameras"},
    {key::kHeight, "Height in lines"},
    {key::kLength, "Length of a line in pixels"},
    {key::kWidth, "Width in pixels"},
    {key::kDate, "Day of the test"},
    {key::kTime, "Time of the test"},
    {key::kNoiseLimit, "Limit of the noise test in percent"},
    {key::kProgramName, "Program that wrote the file"},
    {key::kProgramVersion, "Its version"},
    {key::kProgramBuild, "Its build"},
    {key::kKestrel6Revision, "Revision of the test program"},
    {key::kKestrel6Build, "Build of the test program"},
};

} // namespace

std::string MeaningOf(const HeaderKey& key)
{
    const auto is = [&key](const auto& row) { return key::WithoutEquals(row.key) == key.name; };
    if (const int* number = std::get_if<int>(&key.value)) {
        for (const NumberRow& row : kNumbers)
            if (is(row))
                return row.meaning(*number);
        for (std::size_t camera = 0; camera < key::kCameraPixels.size(); ++camera)
            if (key::WithoutEquals(key::kCameraPixels[camera]) == key.name)
                return "Pixels of " + CameraText(static_cast<int>(camera));
    }
    if (const bool* truth = std::get_if<bool>(&key.value))
        for (const TruthRow& row : kTruths)
            if (is(row))
                return *truth ? row.whenTrue : row.whenFalse;
    for (const TextRow& row : kTexts)
        if (is(row))
            return row.meaning;
    return {};
}

} // namespace vireo
