#include "platform/Console.h"

#include <fcntl.h>
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
    // Bytes pass unchanged, and terminals expect UTF-8. Where a shell has closed one of the streams
    // (>&-), the next file that is opened would take its place, and what is printed would go there.
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        const bool isClosed = fcntl(stream, F_GETFD) < 0;
        // The lowest number that is free is taken. Standard output still cannot be written.
        if (isClosed && open("/dev/null", stream == STDERR_FILENO ? O_WRONLY : O_RDONLY) != stream)
            return;
    }
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
