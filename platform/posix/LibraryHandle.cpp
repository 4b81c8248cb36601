#include "platform/LibraryHandle.h"

#include <dlfcn.h>

namespace vireo {

void* OpenLibrary(const std::filesystem::path& path)
{
    return dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
}

void CloseLibrary(void* handle)
{
    if (handle != nullptr)
        dlclose(handle);
}

void* FindSymbol(void* handle, const char* name)
{
    return dlsym(handle, name);
}

} // namespace vireo
