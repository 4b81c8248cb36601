#include "platform/RemoveOnStop.h"

#include "platform/windows/SystemPath.h"

#include <windows.h>

#include <mutex>
#include <vector>

namespace vireo {

namespace {

std::mutex listMutex;
std::vector<std::filesystem::path> files;

/// In a thread of its own. The mutex is not given back: nobody is to add a file now.
BOOL WINAPI RemoveFiles(DWORD)
{
    listMutex.lock();
    for (const std::filesystem::path& file : files)
        DeleteFileW(file.c_str());
    return FALSE; // The program ends, as it would have.
}

} // namespace

void RemoveOnStop(const std::filesystem::path& file)
{
    static const bool isAnswering = SetConsoleCtrlHandler(RemoveFiles, TRUE);
    static_cast<void>(isAnswering);
    const std::lock_guard guard(listMutex);
    files.push_back(SystemPath(file));
}

void KeepOnStop(const std::filesystem::path& file)
{
    const std::lock_guard guard(listMutex);
    std::erase(files, SystemPath(file));
}

} // namespace vireo
