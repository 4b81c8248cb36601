#pragma once

#include <filesystem>
#include <string>

namespace vireo {

/// A library loaded at run time by name, released by the destructor.
class SharedLibrary {
public:
    SharedLibrary() = default;
    SharedLibrary(SharedLibrary&& other) noexcept;
    SharedLibrary& operator=(SharedLibrary&& other) noexcept;
    SharedLibrary(const SharedLibrary&) = delete;
    SharedLibrary& operator=(const SharedLibrary&) = delete;
    ~SharedLibrary();

    /// Loads a library from the program's folder or, with an absolute path, from there; the
    /// system's search path is never asked, so no stranger's library is picked up. Returns whether
    /// it is loaded.
    bool Load(const std::filesystem::path& library);
    bool IsLoaded() const { return m_handle != nullptr; }
    /// The address of an exported name; null when there is none.
    void* Symbol(const std::string& name) const;

private:
    void* m_handle = nullptr;
};

} // namespace vireo
