#include "platform/Console.h"

#include <unistd.h>

namespace vireo {

std::vector<std::string> ProgramArguments(int argc, const char* const* argv)
{
    return argc > 1 ? std::vector<std::string>(argv + 1, argv + argc) : std::vector<std::string>();
}

std::optional<std::string> WholeCommandLine()
{
    return std::nullopt;
}

void SetUpStandardOutput()
{
    // Bytes pass unchanged, and terminals expect UTF-8.
}

bool ShellExpandsPatterns()
{
    return true;
}

bool StandardErrorIsTerminal()
{
    return isatty(STDERR_FILENO) == 1;
}

} // namespace vireo
