#include "fuzz/FuzzInput.h"
#include "imagefile/CTIFReader.h"
#include "imagefile/CTIFWriter.h"

#include <algorithm>
#include <cstring>

// The first 4 bytes choose depth, compression, predictor and width, the others are pixels: what is
// written reads back.

namespace vireo {
namespace {

class Rows : public CImageReceiver {
public:
    ImageResult BeginImage(ColorDepth depth, std::uint32_t width, std::uint32_t, std::uint32_t,
        std::uint32_t, std::uint32_t) override
    {
        m_row.resize(static_cast<std::size_t>(BytesPerRow(depth, width)));
        return ImageResult::Ok;
    }
    std::uint8_t* GetLineBuffer() override { return m_row.data(); }
    ImageResult LineDone() override
    {
        pixels.insert(pixels.end(), m_row.begin(), m_row.end());
        return ImageResult::Ok;
    }
    ImageResult EndImage(std::uint32_t) override { return ImageResult::Ok; }

    std::vector<std::uint8_t> pixels;

private:
    std::vector<std::uint8_t> m_row;
};

struct Picture {
    ColorDepth depth;
    std::uint32_t width;
    std::uint32_t height;
    std::vector<std::uint8_t> pixels;
};

/// Rows as readers give them: the bits behind the last pixel are 1.
Picture MakePicture(ColorDepth depth, std::uint32_t width, std::span<const std::uint8_t> bytes)
{
    const auto rowBytes = static_cast<std::size_t>(BytesPerRow(depth, width));
    const std::size_t height = std::max<std::size_t>((bytes.size() + rowBytes - 1) / rowBytes, 1);
    Picture picture = {depth, width, static_cast<std::uint32_t>(height), {}};
    picture.pixels.assign(bytes.begin(), bytes.end());
    picture.pixels.resize(height * rowBytes);
    if (depth == ColorDepth::Bilevel && width % 8 != 0) {
        for (std::size_t row = 1; row <= height; ++row)
            picture.pixels[row * rowBytes - 1] |= static_cast<std::uint8_t>(0xff >> width % 8);
    }
    return picture;
}

bool Write(const Picture& picture, const TifSettings& settings, const std::filesystem::path& file)
{
    CTIFWriter writer(file, settings);
    if (writer.BeginImage(picture.depth, picture.width, picture.height, 300, 0, 0)
        != ImageResult::Ok)
        return false;
    const std::size_t rowBytes = picture.pixels.size() / picture.height;
    for (std::size_t row = 0; row < picture.height; ++row) {
        std::memcpy(writer.GetLineBuffer(), picture.pixels.data() + row * rowBytes, rowBytes);
        Require(writer.LineDone() == ImageResult::Ok);
    }
    Require(writer.EndImage(0) == ImageResult::Ok);
    return true;
}

void ReadBack(const Picture& picture, const std::filesystem::path& file)
{
    Rows rows;
    CTIFReader reader;
    reader.SetFile(file);
    reader.SetReceiver(rows);
    std::uint32_t height = 0;
    Require(reader.Open(height) == ImageResult::Ok && height == picture.height);
    for (; height > 0; --height)
        Require(reader.ReadLine() == ImageResult::Ok);
    Require(rows.pixels == picture.pixels);
}

} // namespace
} // namespace vireo

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace vireo;
    constexpr std::size_t kChoices = 4;
    if (size < kChoices)
        return 0;
    constexpr std::uint16_t kCompressions[] = {TifCompression::kNone,
        TifCompression::kModifiedHuffman, TifCompression::kGroup4, TifCompression::kLzw,
        TifCompression::kPackBits};
    TifSettings settings;
    settings.compression = kCompressions[data[1] % std::size(kCompressions)];
    settings.predictor = static_cast<std::uint16_t>(1 + data[1] / 128);
    settings.colorMap.emplace();
    const std::uint32_t width = 1 + data[2] + (data[3] % 16) * 256U;
    const Picture picture = MakePicture(
        static_cast<ColorDepth>(data[0] % 6), width, std::span(data, size).subspan(kChoices));
    static const std::filesystem::path& file = InputFile({}); // Perhaps absent later.
    std::filesystem::remove(file); // To replace it, the writer would wait for the disk.
    if (Write(picture, settings, file))
        ReadBack(picture, file);
    return 0;
}
