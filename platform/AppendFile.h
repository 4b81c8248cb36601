#pragma once

#include <filesystem>
#include <string_view>

namespace vireo {

/// A file that several programs append to at the same time, each write whole at the file's end.
class AppendFile {
public:
    AppendFile() = default;
    AppendFile(const AppendFile&) = delete;
    AppendFile& operator=(const AppendFile&) = delete;
    ~AppendFile() { Close(); }

    /// Opens a regular file and makes it when it is missing; a file open before is closed first.
    bool Open(const std::filesystem::path& path);
    void Close();
    /// Appends the text in one write of the system; whether all of it was written.
    bool Append(std::string_view text);

private:
#ifdef _WIN32
    void* m_handle = nullptr;
#else
    int m_descriptor = -1;
#endif
};

} // namespace vireo
