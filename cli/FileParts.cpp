#include "cli/FileParts.h"

#include "cli/Settings.h"
#include "platform/Text.h"

#include <algorithm>

namespace vireo {

namespace {

std::string NoSuch(const char* part, std::int64_t chosen, std::int64_t count)
{
    return Format("There is no %s %lld: the file has %lld, counted from 0", part,
        static_cast<long long>(chosen), static_cast<long long>(count));
}

bool HasPlane(const FileParts& parts, ShownColour colour)
{
    return colour == ShownColour::All || !parts.planes
        || std::ranges::find(*parts.planes, colour) != parts.planes->end();
}

} // namespace

std::string RefuseMissing(const Settings& settings, const FileParts& parts)
{
    const int camera = settings.camera.value_or(0);
    if (settings.camera && parts.cameraPixels[static_cast<std::size_t>(camera)] <= 0)
        return std::string("There is no camera ") + ProfileCameras::Letter(camera);
    if (settings.colour && !HasPlane(parts, *settings.colour))
        return "There is no plane " + std::string(ColourName(*settings.colour));
    if (settings.sweep && *settings.sweep >= parts.sweeps)
        return NoSuch("sweep", *settings.sweep, parts.sweeps);
    if (settings.view.value_or(0) > 0 && *settings.view >= parts.views)
        return NoSuch("view", *settings.view, parts.views);
    if (!settings.target && settings.line > 0 && parts.lines && settings.line >= *parts.lines)
        return NoSuch("line", settings.line, *parts.lines);
    return {};
}

} // namespace vireo
