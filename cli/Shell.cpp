#include "cli/Shell.h"

#include <cstdio>
#include <string>

namespace vireo {

namespace {

/// A text on one line: control characters become blanks.
std::string OnOneLine(std::string_view text)
{
    std::string line(text);
    for (char& character : line) {
        const auto code = static_cast<unsigned char>(character);
        constexpr unsigned char kDelete = 127;
        if (code < ' ' || code == kDelete)
            character = ' ';
    }
    return line;
}

} // namespace

bool PrintOutput(std::string_view text)
{
    const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    return std::fflush(stdout) == 0 && written;
}

int PrintAll(std::string_view program, std::string_view text)
{
    if (PrintOutput(text))
        return kExitDone;
    PrintError(program, kOutputFailed);
    return kExitFileFailed;
}

void PrintError(std::string_view program, std::string_view text)
{
    const std::string line = std::string(program) + ": " + OnOneLine(text) + '\n';
    std::fwrite(line.data(), 1, line.size(), stderr);
}

} // namespace vireo
