#include "viewers/picture/PictureExport.h"

#include "imagefile/CTIFReader.h"
#include "platform/Path.h"
#include "platform/ProcessInfo.h"
#include "platform/Text.h"
#include "viewers/controls/LineTable.h"
#include "viewers/picture/PictureCameras.h"
#include "viewers/picture/TiffPixels.h"

#include <algorithm>
#include <new>
#include <vector>

namespace vireo {

namespace {

/// Takes rows one after the other: keeps the samples of one, and sums all up.
class RowCollector : public CImageReceiver {
public:
    explicit RowCollector(const CTIFReader& reader) : m_reader(reader) { }

    ImageResult BeginImage(ColorDepth, std::uint32_t width, std::uint32_t, std::uint32_t,
        std::uint32_t, std::uint32_t) override
    {
        m_pixels = TiffPixels(m_reader.Entries());
        const std::uint64_t samples = std::uint64_t{width} * m_pixels.SampleCount();
        constexpr std::uint64_t kBytesASample = 2 * sizeof(std::uint16_t) + sizeof(std::uint64_t);
        if (samples * kBytesASample > MostPictureBytes())
            return ImageResult::TifOutOfMemory;
        try {
            m_line.resize(m_reader.RowBytes());
            m_row.resize(static_cast<std::size_t>(samples));
            m_samples.resize(m_row.size());
            m_sums.resize(m_row.size());
        } catch (const std::bad_alloc&) {
            return ImageResult::TifOutOfMemory;
        }
        return ImageResult::Ok;
    }
    std::uint8_t* GetLineBuffer() override
    {
        std::fill(m_line.begin(), m_line.end(), std::uint8_t{0});
        return m_line.data();
    }
    ImageResult LineDone() override { return ImageResult::Ok; }
    ImageResult EndImage(std::uint32_t) override { return ImageResult::Ok; }

    /// The line buffer holds a row of the picture.
    void TakeRow(bool isKept)
    {
        m_pixels.TakeSamples(m_line.data(), 0, m_reader.Width(), m_samples.data());
        for (std::size_t i = 0; i < m_sums.size(); ++i)
            m_sums[i] += m_samples[i];
        if (isKept)
            m_row = m_samples;
    }

    const TiffPixels& Pixels() const { return m_pixels; }
    int Value(std::size_t sample) const { return m_row[sample]; }
    double Mean(std::size_t sample) const
    {
        return static_cast<double>(m_sums[sample]) / m_reader.Height();
    }

private:
    const CTIFReader& m_reader;
    TiffPixels m_pixels;
    std::vector<std::uint8_t> m_line;
    std::vector<std::uint16_t> m_samples;
    std::vector<std::uint16_t> m_row;
    std::vector<std::uint64_t> m_sums;
};

std::string Heading(ColorDepth depth)
{
    const std::string start = "pixel,position_mm,camera,";
    switch (depth) {
    case ColorDepth::Bilevel:
        return start + "bit,bit_mean\r\n";
    case ColorDepth::Palette8:
        return start + "index\r\n";
    case ColorDepth::Gray8:
    case ColorDepth::Gray16:
        return start + "gray,gray_mean\r\n";
    case ColorDepth::Rgb8:
    case ColorDepth::Rgb16:
        break;
    }
    return start + "red,green,blue,red_mean,green_mean,blue_mean\r\n";
}

FileStatus WriteTable(
    const std::filesystem::path& target, const TifPage& page, const RowCollector& collector)
{
    constexpr double kMillimetresPerInch = 25.4;
    const std::optional<CameraCounts> cameras = ParseCameraDescription(page.description);
    const std::size_t samples = collector.Pixels().SampleCount();
    const auto appendPixel = [&](std::string& text, std::int64_t pixel) {
        AppendNumber(text, pixel);
        text += ',';
        if (page.resolution != 0)
            AppendNumber(text, static_cast<double>(pixel) * kMillimetresPerInch / page.resolution);
        text += ',';
        if (const auto camera = cameras ? CameraOfColumn(*cameras, pixel) : std::nullopt)
            text += *camera;
        const std::size_t first = static_cast<std::size_t>(pixel) * samples;
        for (std::size_t i = 0; i < samples; ++i)
            AppendNumber(text += ',', collector.Value(first + i));
        for (std::size_t i = 0; i < samples && page.depth != ColorDepth::Palette8; ++i)
            AppendNumber(text += ',', collector.Mean(first + i));
        text += "\r\n";
    };
    return WriteLineTable(target, Heading(page.depth), page.width,
        [&](std::string& text, std::int64_t first, std::int64_t count) {
            for (std::int64_t pixel = first; pixel < first + count; ++pixel)
                appendPixel(text, pixel);
            return true;
        });
}

} // namespace

std::string ExportPictureRow(const PictureRowExport& what, WorkProgress& progress)
{
    CTIFReader reader;
    RowCollector collector(reader);
    reader.SetFile(what.file);
    reader.SetPage(what.page);
    reader.SetReceiver(collector);
    std::uint32_t rows = 0;
    ImageResult result = reader.Open(rows);
    if (result == ImageResult::Ok && what.row >= rows)
        return Format("There is no line %lld: the picture has %u, counted from 0",
            static_cast<long long>(what.row), rows);
    progress.SetTotal(rows);
    for (std::uint32_t row = 0; row < rows && result == ImageResult::Ok; ++row) {
        if (progress.IsCancelled())
            return {};
        result = reader.ReadLine();
        collector.TakeRow(row == what.row);
        progress.SetDone(row);
    }
    if (result != ImageResult::Ok)
        return std::string(Describe(result));
    const FileStatus status = WriteTable(what.target, reader.Entries(), collector);
    return status == FileStatus::Ok
        ? std::string()
        : "Cannot write " + Utf8FromPath(what.target) + ": " + std::string(Describe(status));
}

} // namespace vireo
