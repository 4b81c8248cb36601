#include "app/ViewerProgram.h"
#include "cli/Program.h"
#include "platform/Console.h"
#include "platform/HandOver.h"

/// The main function of the viewer where it is also the program that draws for vireo-cli.
int main(int argc, char** argv)
{
    if (!vireo::IsHandedOver())
        return vireo::RunViewerProgram(argc, argv);
    vireo::SetUpStandardOutput();
    return vireo::RunProgram(vireo::ProgramArguments(argc, argv));
}
