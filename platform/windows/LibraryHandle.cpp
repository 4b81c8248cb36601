#include "platform/LibraryHandle.h"

#include <windows.h>

#include <bit>

namespace vireo {

void* OpenLibrary(const std::filesystem::path& path)
{
    // What the library itself needs comes from its own folder or the system's, not from the
    // current folder.
    std::filesystem::path native = path;
    native.make_preferred();
    return LoadLibraryExW(
        native.c_str(), nullptr, LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR | LOAD_LIBRARY_SEARCH_SYSTEM32);
}

void CloseLibrary(void* handle)
{
    if (handle != nullptr)
        FreeLibrary(static_cast<HMODULE>(handle));
}

void* FindSymbol(void* handle, const char* name)
{
    return std::bit_cast<void*>(GetProcAddress(static_cast<HMODULE>(handle), name));
}

} // namespace vireo
