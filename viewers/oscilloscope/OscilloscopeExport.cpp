#include "viewers/oscilloscope/OscilloscopeExport.h"

#include "platform/AtomicFile.h"
#include "testfile/TestFileHeader.h"
#include "viewers/oscilloscope/OscilloscopeData.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string>

namespace vireo {

namespace {

/// Rows are gathered in pieces of this many pixels before they are written.
constexpr std::int64_t kPiecePixels = 64 * 1024;

template <typename Number>
void AppendNumber(std::string& text, Number number)
{
    constexpr std::size_t kLongestNumber = 32;
    std::array<char, kLongestNumber> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    text.append(digits.data(), end);
}

std::string TableHeading(const OscilloscopeData& data)
{
    const std::string start = "pixel,position_mm,camera,";
    if (data.IsInterleaved())
        return start + "red,green,blue\r\n";
    return start + (data.m_iColor == TestFileHeader::kColorGray ? "gray\r\n" : "green\r\n");
}

/// Appends the rows of the pixels from `first` on.
void AppendRows(std::string& text, std::int64_t first, const ProfileCameras& cameras,
    const OscilloscopeData::PlaneBytes& planes)
{
    const std::size_t count = planes[static_cast<std::size_t>(Plane::Green)].size();
    for (std::size_t i = 0; i < count; ++i) {
        const std::int64_t pixel = first + static_cast<std::int64_t>(i);
        AppendNumber(text, pixel);
        text += ',';
        if (cameras.pixelPitchMm > 0.0)
            AppendNumber(text, static_cast<double>(pixel) * cameras.pixelPitchMm);
        text += ',';
        if (const auto camera = cameras.CameraAt(pixel))
            text += ProfileCameras::Letter(*camera);
        for (const auto& plane : planes) {
            if (plane.empty())
                continue;
            text += ',';
            AppendNumber(text, static_cast<int>(plane[i]));
        }
        text += "\r\n";
    }
}

} // namespace

FileStatus ExportLineAsCsv(
    const std::filesystem::path& target, const OscilloscopeData& data, std::int64_t line)
{
    AtomicFile file;
    if (const FileStatus status = file.Open(target); status != FileStatus::Ok)
        return status;
    FileStatus status = file.Write(TableHeading(data));
    const ProfileCameras cameras = data.Cameras();
    const std::int64_t pixels = data.PixelsOfLine(line);
    OscilloscopeData::PlaneBytes planes;
    std::string rows;
    for (std::int64_t first = 0; status == FileStatus::Ok && first < pixels;
         first += kPiecePixels) {
        if (!data.ReadPixels(line, first, std::min(kPiecePixels, pixels - first), planes))
            return FileStatus::Failed;
        rows.clear();
        AppendRows(rows, first, cameras, planes);
        status = file.Write(rows);
    }
    return status == FileStatus::Ok ? file.Commit() : status;
}

} // namespace vireo
