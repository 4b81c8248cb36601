#include "cli/render/PdfFile.h"

#include <string_view>

namespace vireo {

FileStatus PdfFile::Create(const std::filesystem::path& target)
{
    const FileStatus status = m_file.Open(target);
    if (status == FileStatus::Ok)
        open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    return status;
}

qint64 PdfFile::writeData(const char* data, qint64 length)
{
    const FileStatus status =
        m_file.Write(std::string_view(data, static_cast<std::size_t>(length)));
    return status == FileStatus::Ok ? length : -1;
}

} // namespace vireo
