#include "platform/PositionalFile.h"

namespace vireo {

std::string_view Describe(FileStatus status)
{
    switch (status) {
    case FileStatus::Ok:
        return "No error";
    case FileStatus::NotFound:
        return "No such file";
    case FileStatus::AccessDenied:
        return "Permission denied";
    case FileStatus::IsFolder:
        return "Is a folder";
    case FileStatus::NotAFile:
        return "Is a device or a pipe, not a file";
    case FileStatus::SharingViolation:
        return "In use by another program";
    case FileStatus::DiskFull:
        return "The disk is full";
    case FileStatus::TooLarge:
        return "The file is too large";
    case FileStatus::Failed:
        break;
    }
    return "Input/output error";
}

FileStatus ReadWholeFile(
    const std::filesystem::path& path, std::size_t maxBytes, std::string& content)
{
    content.clear();
    PositionalFile file;
    const FileStatus status = file.Open(path);
    if (status != FileStatus::Ok)
        return status;
    if (file.Size() > maxBytes)
        return FileStatus::TooLarge;

    content.resize(static_cast<std::size_t>(file.Size()));
    const auto bytes = std::as_writable_bytes(std::span(content));
    content.resize(file.ReadAt(0, {reinterpret_cast<std::uint8_t*>(bytes.data()), bytes.size()}));
    return FileStatus::Ok;
}

} // namespace vireo
