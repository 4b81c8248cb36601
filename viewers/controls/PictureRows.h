#pragma once

#include <cstdint>
#include <span>

namespace vireo {

/// A rectangle of a picture in its pixels, 0-based, rows counted from the top.
struct PictureRect {
    std::int64_t left = 0;
    std::int64_t top = 0;
    std::int64_t width = 0;
    std::int64_t height = 0;
};

/// Where the rows of a picture come from: a file that is read, or decoded, where it is looked at.
/// Any rows and columns may be asked for in any order and from any thread.
class PictureRows {
public:
    static constexpr int kGray = 1;
    static constexpr int kRgb = 3;
    static constexpr std::uint8_t kWhite = 255;

    virtual ~PictureRows() = default;

    /// Pixels; neither is negative.
    virtual std::int64_t Width() const = 0;
    virtual std::int64_t Height() const = 0;
    /// Bytes a pixel: kGray, or kRgb for red, green, blue.
    virtual int Channels() const = 0;

    /// The rows behind this one are white, because the data end before them. Work over the whole
    /// picture stops here: a damaged file may announce any height.
    virtual std::int64_t CoveredRows() const { return Height(); }

    /// Whether a part of a row costs about as much as its bytes. When it is false, each row costs
    /// as much as all of it, and large parts of the picture are not read just to draw them.
    virtual bool IsCheap() const { return true; }

    /// Reads the pixels of a rectangle that lies within the picture, row after row without gaps:
    /// width x height x Channels() bytes, which `pixels` must hold. What the data do not cover, or
    /// what cannot be read, is white.
    virtual void Read(const PictureRect& rect, std::span<std::uint8_t> pixels) const = 0;
};

} // namespace vireo
