#include "imagefile/CFileIccProfileReader.h"
#include "imagefile/CTIFReader.h"
#include "imagefile/CTIFWriter.h"
#include "platform/ProcessInfo.h"
#include "testfile/CPicture.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <utility>

namespace vireo {

namespace {

/// The picture's type for a file's pixels; nothing for pixels that no picture holds.
std::optional<std::uint32_t> TypeOf(ColorDepth depth)
{
    switch (depth) {
    case ColorDepth::Bilevel:
        return CPicture::PIC_BW;
    case ColorDepth::Gray8:
        return CPicture::PIC_GRAY;
    case ColorDepth::Rgb8:
        return CPicture::PIC_RGB;
    case ColorDepth::Rgb16:
        return CPicture::PIC_RGB16;
    default:
        return std::nullopt;
    }
}

std::optional<ColorDepth> DepthOf(std::uint32_t type)
{
    for (const ColorDepth depth :
        {ColorDepth::Bilevel, ColorDepth::Gray8, ColorDepth::Rgb8, ColorDepth::Rgb16}) {
        if (TypeOf(depth) == type)
            return depth;
    }
    return std::nullopt;
}

} // namespace

/// Makes a picture's memory when its size is known, and hands out line after line of it.
class CPicture::CMyReceiver : public CImageReceiver {
public:
    explicit CMyReceiver(CPicture& picture) : m_picture(picture) { }

    ImageResult BeginImage(ColorDepth depth, std::uint32_t width, std::uint32_t height,
        std::uint32_t resolution, std::uint32_t, std::uint32_t) override
    {
        constexpr std::uint32_t kMost = std::numeric_limits<std::int32_t>::max();
        const std::optional<std::uint32_t> type = TypeOf(depth);
        if (!type)
            return ImageResult::UnsupportedTifFormat;
        const std::uint64_t pitch = BytesPerRow(depth, width);
        // Width times three is a field too.
        if (width > kMost / 3 || height > kMost || pitch > MostPictureBytes() / height)
            return ImageResult::TifOutOfMemory;
        const auto length = static_cast<std::int64_t>(pitch * height);
        Buffer buffer = MakeBuffer(length);
        if (!buffer)
            return ImageResult::TifOutOfMemory;
        m_picture.m_ptrBuffer = std::move(buffer);
        m_picture.m_iBufferLength = length;
        m_picture.m_iDataLength = length;
        m_picture.m_PicData = *type;
        m_picture.m_iWidth = static_cast<std::int32_t>(width);
        m_picture.m_iWidth3 = m_picture.m_iWidth * 3;
        m_picture.m_iHeight = static_cast<std::int32_t>(height);
        m_picture.m_iResolution = static_cast<std::int32_t>(std::min(resolution, kMost));
        m_pitch = static_cast<std::size_t>(pitch);
        m_next = m_picture.m_ptrBuffer.get();
        return ImageResult::Ok;
    }
    std::uint8_t* GetLineBuffer() override
    {
        std::uint8_t* const line = m_next;
        m_next += m_pitch;
        return line;
    }
    std::uint32_t LinesAhead() const override
    {
        const std::uint8_t* const end = m_picture.m_ptrBuffer.get() + m_picture.m_iBufferLength;
        return 1 + static_cast<std::uint32_t>(static_cast<std::size_t>(end - m_next) / m_pitch);
    }
    ImageResult LineDone() override { return ImageResult::Ok; }
    ImageResult EndImage(std::uint32_t) override { return ImageResult::Ok; }

private:
    CPicture& m_picture;
    std::uint8_t* m_next = nullptr;
    std::size_t m_pitch = 0;
};

ImageResult CPicture::LoadTiff(
    const std::filesystem::path& file, std::uint32_t page, ImageResult* lines)
{
    CMyReceiver receiver(*this);
    CTIFReader reader;
    reader.SetFile(file);
    reader.SetPage(page);
    reader.SetReceiver(receiver);
    std::uint32_t rows = 0;
    if (const ImageResult result = reader.Open(rows); result != ImageResult::Ok)
        return result;
    ImageResult firstFailure = ImageResult::Ok;
    for (; rows > 0; --rows) {
        const ImageResult result = reader.ReadLine();
        if (firstFailure == ImageResult::Ok)
            firstFailure = result;
    }
    if (lines)
        *lines = firstFailure;
    if (const auto counts = ParseCameraDescription(reader.Description()))
        m_BiC = *counts;
    return reader.Close(0);
}

ImageResult CPicture::SaveTiff(const std::filesystem::path& file, std::uint16_t compression,
    std::uint16_t predictor, const std::filesystem::path& profile) const
{
    const std::optional<ColorDepth> depth = DepthOf(m_PicData);
    const std::int64_t pitch = LinePitch();
    if (!depth || m_iWidth < 1 || m_iHeight < 1 || m_iDataLength / m_iHeight < pitch)
        return ImageResult::InvalidTiffArguments;
    TifSettings settings;
    settings.compression = compression;
    settings.predictor = predictor;
    settings.description = CameraDescription(m_BiC);
    std::optional<CFileIccProfileReader> source;
    if (!profile.empty())
        settings.profile = &source.emplace(profile);

    CTIFWriter writer(file, settings);
    ImageResult result = writer.BeginImage(*depth, static_cast<std::uint32_t>(m_iWidth),
        static_cast<std::uint32_t>(m_iHeight),
        static_cast<std::uint32_t>(std::max(m_iResolution, 0)), 0, 0);
    const std::uint8_t* line = m_ptrBuffer.get();
    for (std::int32_t row = 0; row < m_iHeight && result == ImageResult::Ok; ++row, line += pitch) {
        std::memcpy(writer.GetLineBuffer(), line, static_cast<std::size_t>(pitch));
        result = writer.LineDone();
    }
    return result == ImageResult::Ok ? writer.EndImage(0) : result;
}

} // namespace vireo
