#include "cli/Program.h"
#include "platform/Console.h"

int main(int argc, char** argv)
{
    vireo::SetUpStandardOutput();
    return vireo::RunProgram(vireo::ProgramArguments(argc, argv));
}
