#pragma once

#include <filesystem>

namespace vireo {

/// The system's handle of the library at an absolute path; null when it cannot be loaded.
void* OpenLibrary(const std::filesystem::path& path);
/// Releases a handle; null is let pass.
void CloseLibrary(void* handle);
/// The address of an exported name; null when there is none.
void* FindSymbol(void* handle, const char* name);

} // namespace vireo
