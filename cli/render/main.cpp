#include "cli/Program.h"
#include "platform/Console.h"
#include "platform/HandOver.h"

/// The main function of vireo-cli-draw, to which vireo-cli hands the commands that draw.
int main(int argc, char** argv)
{
    const std::filesystem::path name = argc > 0 ? argv[0] : "";
    // A whole path is that of vireo-cli; typed by a person, the name is this program's own.
    if (name.is_absolute() && name.filename() == vireo::kCommandLineProgram)
        vireo::StandInFor(name);
    vireo::SetUpStandardOutput();
    return vireo::RunProgram(vireo::ProgramArguments(argc, argv));
}
