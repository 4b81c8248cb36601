#include "cli/Command.h"
#include "cli/Drawing.h"
#include "cli/FileRun.h"
#include "cli/Shell.h"
#include "cli/render/Render.h"
#include "cli/render/Report.h"

#include <string_view>

namespace vireo {

namespace {

struct DrawingCommand {
    std::string_view name;
    int (*run)(const Settings& settings);
};

constexpr DrawingCommand kDrawingCommands[] = {
    {"render", Render},
    {"report", Report},
};

} // namespace

int Draw(const Command& command, const Settings& settings, const std::vector<std::string>&)
{
    for (const DrawingCommand& drawing : kDrawingCommands) {
        if (drawing.name == command.name)
            return RunWithLimits(settings, drawing.run);
    }
    return kExitBadUsage;
}

} // namespace vireo
