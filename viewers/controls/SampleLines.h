#pragma once

#include "platform/PositionalFile.h"
#include "viewers/controls/ProfileLine.h"

#include <array>
#include <cstdint>
#include <vector>

namespace vireo {

/// Where the lines of samples of a file lie. Samples are counted from `offset`.
struct SampleLayout {
    static constexpr std::int64_t kColourPlanes = 3;

    std::uint64_t offset = 0;      ///< In bytes from the file's start.
    bool isSigned32 = false;       ///< Little-endian signed 32-bit numbers, else bytes.
    std::int64_t planes = 1;       ///< One; red, green, blue; or these and gray.
    Plane onePlane = Plane::Green; ///< Where the only plane of a file goes.
    bool isInterleaved = true;     ///< Pixel by pixel; else plane after plane, and always bytes.
    std::int64_t stride = 0;       ///< From one plane to the next, where they are not interleaved.
    std::int64_t samples = 0;      ///< In all.
    std::int64_t planeLength = 0;  ///< Samples of a plane, all lines together.
    std::int64_t lineWidth = 0;    ///< Not above planeLength.
    std::int64_t lineCount = 0;

    std::int64_t BytesPerSample() const { return isSigned32 ? 4 : 1; }
    bool HasColour() const { return planes >= kColourPlanes; }
    bool HasGrayPlane() const { return planes > kColourPlanes; }
};

/// Lines of samples in a file, which are read when they are asked for. The file stays open.
class SampleLines {
public:
    /// A line is held whole for drawing up to this many bytes a plane; the rest is not shown.
    static constexpr std::int64_t kMaxShownBytes = std::int64_t{1} << 28;

    SampleLines() = default;
    SampleLines(PositionalFile file, const SampleLayout& layout);

    const SampleLayout& Layout() const { return m_layout; }
    std::int64_t LineWidth() const { return m_layout.lineWidth; }
    std::int64_t LineCount() const { return m_layout.lineCount; }
    /// Pixels that line `line` (0-based) really has.
    std::int64_t PixelsOfLine(std::int64_t line) const;
    /// Pixels of a line that are shown.
    std::int64_t MaxShownPixels() const { return kMaxShownBytes / m_layout.BytesPerSample(); }

    /// Reads line `line` (0-based) for drawing; false when the file cannot give it any more.
    bool ReadLine(std::int64_t line, ProfileLine& profile) const;

    /// Red, green, blue and gray; those that the file lacks stay empty.
    template <typename Sample>
    using PlanePixels = std::array<std::vector<Sample>, 4>;
    /// Reads pixels `first` <= i < first + count of a line, which must have them; a plane that ends
    /// before gives fewer. `Sample` is std::int32_t, which takes either kind, or std::uint8_t for a
    /// file of bytes. False when the file cannot give them any more.
    template <typename Sample>
    bool ReadPixels(std::int64_t line, std::int64_t first, std::int64_t count,
        PlanePixels<Sample>& planes) const;

private:
    std::size_t SlotOf(std::int64_t plane) const;
    template <typename Sample>
    bool ReadPlane(std::int64_t plane, std::int64_t first, std::int64_t count,
        std::vector<Sample>& samples) const;
    template <typename Sample>
    bool ReadInterleaved(std::int64_t first, std::int64_t count, PlanePixels<Sample>& planes) const;

    PositionalFile m_file;
    SampleLayout m_layout;
};

} // namespace vireo
