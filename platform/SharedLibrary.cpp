#include "platform/SharedLibrary.h"

#include "platform/KnownFolders.h"
#include "platform/LibraryHandle.h"
#include "platform/Path.h"

#include <utility>

namespace vireo {

SharedLibrary::SharedLibrary(SharedLibrary&& other) noexcept
    : m_handle(std::exchange(other.m_handle, nullptr))
{
}

SharedLibrary& SharedLibrary::operator=(SharedLibrary&& other) noexcept
{
    if (this != &other) {
        CloseLibrary(m_handle);
        m_handle = std::exchange(other.m_handle, nullptr);
    }
    return *this;
}

SharedLibrary::~SharedLibrary()
{
    CloseLibrary(m_handle);
}

bool SharedLibrary::Load(const std::filesystem::path& library)
{
    CloseLibrary(std::exchange(m_handle, nullptr));
    if (library.empty())
        return false;
    // The folder in front also keeps the system from searching for a bare name.
    const std::filesystem::path path = IsFullPath(library) ? library : ProgramFolder() / library;
    if (IsFullPath(path))
        m_handle = OpenLibrary(path);
    return IsLoaded();
}

void* SharedLibrary::Symbol(const std::string& name) const
{
    return m_handle == nullptr ? nullptr : FindSymbol(m_handle, name.c_str());
}

} // namespace vireo
