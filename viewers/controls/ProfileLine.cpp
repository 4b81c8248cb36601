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

std::int64_t ProfileLine::Length() const
{
    std::size_t length = 0;
    for (const Trace& trace : planes)
        length = std::max(length, trace.samples.size());
    return static_cast<std::int64_t>(length);
}

void ProfileLine::Summarise()
{
    for (Trace& trace : planes)
        trace.pyramid.Build(trace.samples);
    for (ExtraTrace& extra : extras)
        extra.trace.pyramid.Build(extra.trace.samples);
}

} // namespace vireo
