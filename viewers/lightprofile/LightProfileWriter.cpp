#include "viewers/lightprofile/LightProfileWriter.h"

#include "platform/AtomicFile.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace vireo {

namespace {

constexpr std::size_t kGreen = static_cast<std::size_t>(Plane::Green);

bool HasEveryPlane(const ProfileLine& line)
{
    return line.HasPlane(Plane::Red) && line.HasPlane(Plane::Green) && line.HasPlane(Plane::Blue);
}

LightProfileRecord RecordFor(const LightProfileRecord& record, std::span<const ProfileLine> lines)
{
    LightProfileRecord adapted = record;
    adapted.isSigned32 = !lines.empty() && lines.front().IsWide();
    if (!lines.empty() && HasEveryPlane(lines.front()))
        adapted.color = TestFileHeader::kColorInterleaved;
    else if (adapted.IsInterleaved())
        adapted.color = TestFileHeader::kColorGray;
    adapted.height = static_cast<int>(lines.size());
    return adapted;
}

void AppendSample(std::vector<std::uint8_t>& bytes, std::uint8_t sample)
{
    bytes.push_back(sample);
}

/// Little-endian.
void AppendSample(std::vector<std::uint8_t>& bytes, std::int32_t sample)
{
    const auto bits = static_cast<std::uint32_t>(sample);
    for (std::size_t byte = 0; byte < sizeof(bits); ++byte)
        bytes.push_back(static_cast<std::uint8_t>(bits >> (8 * byte)));
}

template <typename Trace>
FileStatus WritePlanes(AtomicFile& file, std::span<const Trace> planes)
{
    std::size_t pixels = planes[0].samples.size();
    for (const Trace& plane : planes)
        pixels = std::min(pixels, plane.samples.size());
    // In pieces: a line may be as long as memory has room for once.
    constexpr std::size_t kPiecePixels = 64 * 1024;
    std::vector<std::uint8_t> bytes;
    FileStatus status = FileStatus::Ok;
    for (std::size_t first = 0; first < pixels && status == FileStatus::Ok; first += kPiecePixels) {
        bytes.clear();
        for (std::size_t i = first; i < std::min(first + kPiecePixels, pixels); ++i)
            for (const Trace& plane : planes)
                AppendSample(bytes, plane.samples[i]);
        status = file.Write(bytes);
    }
    return status;
}

template <typename Trace>
FileStatus WriteLine(AtomicFile& file, const std::array<Trace, 3>& planes, bool isInterleaved)
{
    const std::span<const Trace> all(planes);
    return WritePlanes(file, isInterleaved ? all : all.subspan(kGreen, 1));
}

} // namespace

FileStatus WriteLightProfile(const std::filesystem::path& target, const LightProfileRecord& record,
    std::span<const ProfileLine> lines)
{
    const LightProfileRecord adapted = RecordFor(record, lines);
    AtomicFile file;
    FileStatus status = file.Open(target);
    if (status == FileStatus::Ok)
        status = file.Write(adapted.Header().Text());
    for (const ProfileLine& line : lines) {
        if (status != FileStatus::Ok)
            break;
        status = adapted.isSigned32 ? WriteLine(file, line.widePlanes, adapted.IsInterleaved())
                                    : WriteLine(file, line.planes, adapted.IsInterleaved());
    }
    return status == FileStatus::Ok ? file.Commit() : status;
}

} // namespace vireo
