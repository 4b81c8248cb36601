#include "viewers/controls/SampleLines.h"

#include <algorithm>
#include <utility>

namespace vireo {

namespace {

/// Bytes from the file are taken apart in pieces of this many samples.
constexpr std::int64_t kPieceSamples = 64 * 1024;

} // namespace

SampleLines::SampleLines(PositionalFile file, const SampleLayout& layout)
    : m_file(std::move(file)),
      m_layout(layout)
{
}

std::int64_t SampleLines::PixelsOfLine(std::int64_t line) const
{
    if (line < 0 || line >= m_layout.lineCount)
        return 0;
    return std::clamp<std::int64_t>(
        m_layout.planeLength - line * m_layout.lineWidth, 0, m_layout.lineWidth);
}

namespace {

/// Appends `count` samples of one plane, which lie `step` bytes apart.
template <typename Sample>
void AppendSamples(std::vector<Sample>& samples, const std::uint8_t* from, std::int64_t count,
    std::int64_t step, bool isSigned32)
{
    const std::size_t start = samples.size();
    samples.resize(start + static_cast<std::size_t>(count));
    Sample* to = samples.data() + start;
    if (!isSigned32) {
        for (std::int64_t i = 0; i < count; ++i, from += step)
            *to++ = *from;
        return;
    }
    for (std::int64_t i = 0; i < count; ++i, from += step) {
        const std::uint32_t bits = from[0] | std::uint32_t{from[1]} << 8
            | std::uint32_t{from[2]} << 16 | std::uint32_t{from[3]} << 24;
        *to++ = static_cast<Sample>(static_cast<std::int32_t>(bits));
    }
}

} // namespace

std::size_t SampleLines::SlotOf(std::int64_t plane) const
{
    return static_cast<std::size_t>(
        m_layout.HasColour() ? plane : static_cast<std::int64_t>(m_layout.onePlane));
}

template <typename Sample>
bool SampleLines::ReadInterleaved(
    std::int64_t first, std::int64_t count, PlanePixels<Sample>& planes) const
{
    const std::int64_t step = m_layout.planes * m_layout.BytesPerSample();
    std::vector<std::uint8_t> bytes;
    for (std::int64_t done = 0; done < count;) {
        const std::int64_t pixels = std::min(kPieceSamples, count - done);
        bytes.resize(static_cast<std::size_t>(pixels * step));
        const auto at = static_cast<std::uint64_t>((first + done) * step);
        if (m_file.ReadAt(m_layout.offset + at, bytes) != bytes.size())
            return false;
        for (std::int64_t plane = 0; plane < m_layout.planes; ++plane) {
            auto& samples = planes[SlotOf(plane)];
            AppendSamples(samples, bytes.data() + plane * m_layout.BytesPerSample(), pixels, step,
                m_layout.isSigned32);
        }
        done += pixels;
    }
    return true;
}

/// Planes one behind the other are always bytes.
template <typename Sample>
bool SampleLines::ReadPlane(
    std::int64_t plane, std::int64_t first, std::int64_t count, std::vector<Sample>& samples) const
{
    const std::int64_t start = plane * m_layout.stride + first;
    count = std::clamp<std::int64_t>(m_layout.samples - start, 0, count);
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(count));
    if (m_file.ReadAt(m_layout.offset + static_cast<std::uint64_t>(start), bytes) != bytes.size())
        return false;
    samples.assign(bytes.begin(), bytes.end());
    return true;
}

template <typename Sample>
bool SampleLines::ReadPixels(
    std::int64_t line, std::int64_t first, std::int64_t count, PlanePixels<Sample>& planes) const
{
    for (auto& samples : planes)
        samples.clear();
    for (std::int64_t plane = 0; plane < m_layout.planes; ++plane)
        planes[SlotOf(plane)].reserve(static_cast<std::size_t>(count));
    const std::int64_t start = line * m_layout.lineWidth + first;
    if (m_layout.isInterleaved)
        return ReadInterleaved(start, count, planes);
    for (std::int64_t plane = 0; plane < m_layout.planes; ++plane) {
        auto& samples = planes[SlotOf(plane)];
        if (!ReadPlane(plane, start, count, samples))
            return false;
    }
    return true;
}

template bool SampleLines::ReadPixels(
    std::int64_t, std::int64_t, std::int64_t, PlanePixels<std::uint8_t>&) const;
template bool SampleLines::ReadPixels(
    std::int64_t, std::int64_t, std::int64_t, PlanePixels<std::int32_t>&) const;

bool SampleLines::ReadLine(std::int64_t line, ProfileLine& profile) const
{
    profile = ProfileLine();
    const std::int64_t pixels = std::min(PixelsOfLine(line), MaxShownPixels());
    PlanePixels<std::uint8_t> bytes;
    PlanePixels<std::int32_t> numbers;
    const bool complete = m_layout.isSigned32 ? ReadPixels(line, 0, pixels, numbers)
                                              : ReadPixels(line, 0, pixels, bytes);
    if (!complete)
        return false;
    for (std::size_t i = 0; i < profile.planes.size(); ++i) {
        profile.planes[i].samples = std::move(bytes[i]);
        profile.widePlanes[i].samples = std::move(numbers[i]);
    }
    if (m_layout.HasGrayPlane())
        profile.extras.push_back({"Gray", {std::move(bytes.back()), {}}});
    profile.Summarise();
    return true;
}

} // namespace vireo
