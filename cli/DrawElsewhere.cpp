#include "cli/Drawing.h"
#include "cli/Program.h"
#include "cli/Shell.h"
#include "platform/HandOver.h"
#include "platform/KnownFolders.h"
#include "platform/Path.h"

namespace vireo {

namespace {

constexpr const char* kDrawingProgram = VIREO_DRAWING_PROGRAM;

std::filesystem::path DrawingProgram()
{
    const std::filesystem::path folder = ProgramFolder();
    std::error_code error;
    if (const auto beside = folder / kDrawingProgram; std::filesystem::exists(beside, error))
        return beside;
    return FullPath(folder / VIREO_DRAWING_FOLDER / kDrawingProgram);
}

} // namespace

int Draw(const Command&, const Settings&, const std::vector<std::string>& arguments)
{
    const std::filesystem::path program = DrawingProgram();
    const FileStatus status = HandOver(program, arguments);
    PrintError(kCommandLineProgram,
        "The program that draws, " + Utf8FromPath(program)
            + ", cannot be started: " + std::string(Describe(status)));
    return kExitFileFailed;
}

} // namespace vireo
