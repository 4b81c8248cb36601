#include "platform/Console.h"

#include "platform/windows/WideText.h"

#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
// These need windows.h before them.
#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

namespace vireo {

std::vector<std::string> ProgramArguments(int, const char* const*)
{
    // What main gets is in the system's code page, which lacks most characters.
    int count = 0;
    const std::unique_ptr<LPWSTR, decltype(&LocalFree)> texts(
        CommandLineToArgvW(GetCommandLineW(), &count), LocalFree);
    std::vector<std::string> arguments;
    for (int i = 1; texts && i < count; ++i)
        arguments.push_back(Utf8FromWide(texts.get()[i]));
    return arguments;
}

std::optional<std::string> WholeCommandLine()
{
    return Utf8FromWide(GetCommandLineW());
}

namespace {

UINT codePageBefore = 0;

void RestoreCodePage()
{
    SetConsoleOutputCP(codePageBefore);
}

} // namespace

void SetUpStandardOutput()
{
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
    // The code page is the console's, so it stays with the shell when the program has ended.
    codePageBefore = GetConsoleOutputCP();
    if (codePageBefore != 0 && SetConsoleOutputCP(CP_UTF8))
        std::atexit(RestoreCodePage);
}

bool ShellExpandsPatterns()
{
    return false;
}

bool StandardErrorIsTerminal()
{
    DWORD mode = 0;
    return GetConsoleMode(GetStdHandle(STD_ERROR_HANDLE), &mode) != 0;
}

} // namespace vireo
