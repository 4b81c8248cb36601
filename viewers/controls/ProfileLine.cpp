#include "viewers/controls/ProfileLine.h"

#include <algorithm>

namespace vireo {

std::string_view ColourName(ShownColour shown)
{
    switch (shown) {
    case ShownColour::Red:
        return "Red";
    case ShownColour::Green:
        return "Green";
    case ShownColour::Blue:
        return "Blue";
    case ShownColour::Gray:
        return "Gray";
    case ShownColour::All:
        return "All";
    }
    return {};
}

std::int64_t ProfileCameras::Start(int camera) const
{
    std::int64_t start = 0;
    for (int i = 0; i < camera; ++i)
        start += std::max(pixels[static_cast<std::size_t>(i)], 0);
    return start;
}

std::int64_t ProfileCameras::End(int camera) const
{
    return Start(camera) + std::max(pixels[static_cast<std::size_t>(camera)], 0);
}

std::optional<int> ProfileCameras::CameraAt(std::int64_t pixel) const
{
    if (pixel < 0)
        return std::nullopt;
    for (int camera = 0; camera < kCameras; ++camera)
        if (pixel < End(camera))
            return camera;
    return std::nullopt;
}

int ProfileCameras::Count() const
{
    int count = kCameras;
    while (count > 0 && pixels[static_cast<std::size_t>(count - 1)] <= 0)
        --count;
    return count;
}

bool ProfileLine::IsWide() const
{
    return std::ranges::any_of(
        widePlanes, [](const WideTrace& trace) { return !trace.samples.empty(); });
}

bool ProfileLine::HasPlane(Plane plane) const
{
    return !Of(plane).samples.empty() || !WideOf(plane).samples.empty();
}

std::int64_t ProfileLine::Length() const
{
    std::size_t length = 0;
    for (const Trace& trace : planes)
        length = std::max(length, trace.samples.size());
    for (const WideTrace& trace : widePlanes)
        length = std::max(length, trace.samples.size());
    return static_cast<std::int64_t>(length);
}

std::optional<std::int32_t> ProfileLine::ValueAt(Plane plane, std::int64_t pixel) const
{
    const auto index = static_cast<std::size_t>(pixel);
    if (pixel >= 0 && index < Of(plane).samples.size())
        return Of(plane).samples[index];
    if (pixel >= 0 && index < WideOf(plane).samples.size())
        return WideOf(plane).samples[index];
    return std::nullopt;
}

ValueRange<std::int32_t> ProfileLine::RangeOf(
    Plane plane, std::int64_t first, std::int64_t end) const
{
    const WideTrace& wide = WideOf(plane);
    if (!wide.samples.empty())
        return wide.pyramid.Range(wide.samples, first, end);
    const SampleRange range = Of(plane).pyramid.Range(Of(plane).samples, first, end);
    return range.IsEmpty() ? ValueRange<std::int32_t>()
                           : ValueRange<std::int32_t>{range.lowest, range.highest};
}

void ProfileLine::Summarise()
{
    for (Trace& trace : planes)
        trace.pyramid.Build(trace.samples);
    for (WideTrace& trace : widePlanes)
        trace.pyramid.Build(trace.samples);
    for (ExtraTrace& extra : extras)
        extra.trace.pyramid.Build(extra.trace.samples);
}

} // namespace vireo
