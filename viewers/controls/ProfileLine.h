#pragma once

#include "viewers/controls/LinePyramid.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vireo {

/// The colour planes of a line, by their number in the viewers.
enum class Plane { Red = 0, Green = 1, Blue = 2 };

/// What is shown of a line: one plane, the one plane of a gray file, or all three over each other.
enum class ShownColour { Red = 0, Green = 1, Blue = 2, Gray = 4, All = 3 };

/// "Red", "Green", "Blue", "Gray", or "All" for the three over each other.
std::string_view ColourName(ShownColour shown);

/// Where the cameras A to H lie in a line. Pixels are counted from 0 at the line's start; camera
/// indexes from 0 for A.
struct ProfileCameras {
    static constexpr int kCameras = 8;
    /// A camera with fewer pixels is not offered for choosing.
    static constexpr int kFewestPixels = 10;

    std::array<int, kCameras> pixels{}; ///< 0 for a camera that is not there.
    double pixelPitchMm = 0.0;          ///< Width of one pixel on the paper; 0 when not known.

    /// First pixel of a camera, and the pixel behind its last.
    std::int64_t Start(int camera) const;
    std::int64_t End(int camera) const;
    std::int64_t LineWidth() const { return End(kCameras - 1); }
    /// The camera that saw a pixel; nothing outside the cameras.
    std::optional<int> CameraAt(std::int64_t pixel) const;
    /// Number of cameras up to the last that has pixels.
    int Count() const;
    static char Letter(int camera) { return static_cast<char>('A' + camera); }
};

/// One scan line of up to three planes, of 8-bit or of signed 32-bit samples, with the summaries
/// that drawing needs. Further traces can be drawn under it (the five extra planes of an MTF file).
struct ProfileLine {
    template <typename Value>
    struct TraceWith {
        std::vector<Value> samples;
        RangePyramid<Value> pyramid;
    };
    using Trace = TraceWith<std::uint8_t>;
    using WideTrace = TraceWith<std::int32_t>;

    std::array<Trace, 3> planes; ///< By Plane; a gray line has its one plane in Green.
    /// The same of a line of 32-bit samples, whose 8-bit planes are empty.
    std::array<WideTrace, 3> widePlanes;
    struct ExtraTrace {
        std::string name;
        Trace trace;
    };
    std::vector<ExtraTrace> extras;

    const Trace& Of(Plane plane) const { return planes[static_cast<std::size_t>(plane)]; }
    Trace& Of(Plane plane) { return planes[static_cast<std::size_t>(plane)]; }
    const WideTrace& WideOf(Plane plane) const
    {
        return widePlanes[static_cast<std::size_t>(plane)];
    }

    bool IsWide() const;
    bool HasPlane(Plane plane) const;
    /// Pixels in the line: the longest plane's.
    std::int64_t Length() const;
    /// The sample of a plane at a pixel; nothing where there is none.
    std::optional<std::int32_t> ValueAt(Plane plane, std::int64_t pixel) const;
    /// Lowest and highest sample of the pixels first <= i < end of a plane; empty where there are
    /// none.
    ValueRange<std::int32_t> RangeOf(Plane plane, std::int64_t first, std::int64_t end) const;

    /// Builds the pyramids; call after filling the samples.
    void Summarise();
};

} // namespace vireo
