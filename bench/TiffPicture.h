#pragma once

#include "imagefile/CImageReceiver.h"
#include "imagefile/TifPage.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

namespace vireo {

/// A picture in memory, for measuring.
class TiffPicture : private CImageReceiver {
public:
    /// The byte order of 16-bit samples.
    enum class Samples { AsInFile, LittleEndian };

    /// Reads a page, counted from 1, into this picture. Its memory is made the first time only, so
    /// that later times measure decoding alone. Returns the first failure of a row.
    ImageResult Decode(
        const std::filesystem::path& file, std::uint32_t page, Samples samples = Samples::AsInFile);

    ColorDepth Depth() const { return m_depth; }
    std::uint32_t Width() const { return m_width; }
    std::uint32_t Height() const { return m_height; }
    std::uint32_t Resolution() const { return m_resolution; }
    const std::optional<std::array<TifPage::Color, 256>>& ColorMap() const { return m_colorMap; }
    std::size_t RowBytes() const { return m_rowBytes; }
    std::size_t Bytes() const { return m_rowBytes * m_height; }
    const std::uint8_t* Row(std::size_t row) const { return Pixels() + row * m_rowBytes; }

private:
    ImageResult BeginImage(ColorDepth depth, std::uint32_t width, std::uint32_t height,
        std::uint32_t resolution, std::uint32_t, std::uint32_t) override;
    std::uint8_t* GetLineBuffer() override;
    std::uint32_t LinesAhead() const override;
    ImageResult LineDone() override;
    ImageResult EndImage(std::uint32_t) override { return ImageResult::Ok; }

    /// The pixels begin with a page of memory, as those of large pictures mostly do: where they lie
    /// changes how fast bytes can be copied to them.
    static constexpr std::uintptr_t kPageBytes = 4096;
    const std::uint8_t* Pixels() const
    {
        const auto from = reinterpret_cast<std::uintptr_t>(m_memory.data());
        return m_memory.data() + (kPageBytes - from % kPageBytes);
    }

    std::vector<std::uint8_t> m_memory; ///< A page more than the pixels.
    ColorDepth m_depth = ColorDepth::Bilevel;
    std::uint32_t m_width = 0;
    std::uint32_t m_height = 0;
    std::uint32_t m_resolution = 0;
    std::optional<std::array<TifPage::Color, 256>> m_colorMap;
    std::size_t m_rowBytes = 0;
    std::size_t m_row = 0;
};

} // namespace vireo
