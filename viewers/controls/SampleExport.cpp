#include "viewers/controls/SampleExport.h"

#include "platform/Text.h"
#include "viewers/controls/LineTable.h"
#include "viewers/controls/SampleLines.h"

#include <algorithm>

namespace vireo {

template <typename Sample>
void AppendPixelRows(std::string& text, std::int64_t first, const ProfileCameras& cameras,
    std::span<const std::vector<Sample>> planes)
{
    std::size_t count = 0;
    for (const auto& plane : planes)
        count = std::max(count, plane.size());
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
            text += ',';
            if (i < plane.size())
                AppendNumber(text, static_cast<int>(plane[i]));
        }
        text += "\r\n";
    }
}

template void AppendPixelRows(
    std::string&, std::int64_t, const ProfileCameras&, std::span<const std::vector<std::uint8_t>>);
template void AppendPixelRows(
    std::string&, std::int64_t, const ProfileCameras&, std::span<const std::vector<std::int32_t>>);

FileStatus ExportSamplesAsCsv(const std::filesystem::path& target, const SampleLines& lines,
    const ProfileCameras& cameras, ShownColour onePlane, std::int64_t line)
{
    const SampleLayout& layout = lines.Layout();
    std::string heading = kPixelRowsHeading;
    if (layout.HasColour())
        heading += layout.HasGrayPlane() ? "red,green,blue,gray" : "red,green,blue";
    else
        heading += LowerAscii(ColourName(onePlane));
    SampleLines::PlanePixels<std::int32_t> planes;
    const auto stored = layout.HasColour()
        ? std::span(planes).first(static_cast<std::size_t>(layout.planes))
        : std::span(planes).subspan(static_cast<std::size_t>(layout.onePlane), 1);
    return WriteLineTable(target, heading + "\r\n", lines.PixelsOfLine(line),
        [&](std::string& text, std::int64_t first, std::int64_t count) {
            if (!lines.ReadPixels(line, first, count, planes))
                return false;
            AppendPixelRows<std::int32_t>(text, first, cameras, stored);
            return true;
        });
}

} // namespace vireo
