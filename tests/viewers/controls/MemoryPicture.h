#pragma once

#include "viewers/controls/PictureRows.h"

#include <algorithm>
#include <functional>
#include <vector>

namespace vireo {

/// A picture held in memory, for tests.
class MemoryPicture : public PictureRows {
public:
    using Value = std::function<int(std::int64_t x, std::int64_t y)>;

    MemoryPicture(std::int64_t width, std::int64_t height, int channels = kGray)
        : m_width(width),
          m_height(height),
          m_channels(channels),
          m_pixels(static_cast<std::size_t>(width * height * channels), kWhite)
    {
    }
    MemoryPicture(std::int64_t width, std::int64_t height, const Value& value)
        : MemoryPicture(width, height)
    {
        for (std::int64_t y = 0; y < height; ++y) {
            for (std::int64_t x = 0; x < width; ++x)
                At(x, y) = static_cast<std::uint8_t>(value(x, y));
        }
    }

    std::uint8_t& At(std::int64_t x, std::int64_t y, int channel = 0)
    {
        return m_pixels[static_cast<std::size_t>((y * m_width + x) * m_channels + channel)];
    }
    void FillRow(std::int64_t y, int value)
    {
        std::fill_n(&At(0, y), m_width * m_channels, static_cast<std::uint8_t>(value));
    }
    void SetCheap(bool isCheap) { m_isCheap = isCheap; }

    std::function<void(std::int64_t firstRow)> whenRead; ///< Called before rows are read.

    std::int64_t Width() const override { return m_width; }
    std::int64_t Height() const override { return m_height; }
    int Channels() const override { return m_channels; }
    bool IsCheap() const override { return m_isCheap; }
    void Read(const PictureRect& rect, std::span<std::uint8_t> pixels) const override
    {
        if (whenRead)
            whenRead(rect.top);
        for (std::int64_t row = 0; row < rect.height; ++row) {
            const auto from = ((rect.top + row) * m_width + rect.left) * m_channels;
            std::copy_n(m_pixels.begin() + from, rect.width * m_channels,
                pixels.begin() + row * rect.width * m_channels);
        }
    }

private:
    std::int64_t m_width;
    std::int64_t m_height;
    int m_channels;
    std::vector<std::uint8_t> m_pixels;
    bool m_isCheap = true;
};

} // namespace vireo
