#include "platform/AppendFile.h"

#include "platform/posix/SystemError.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vireo {

bool AppendFile::Open(const std::filesystem::path& path)
{
    Close();
    if (HoldsZeroByte(path))
        return false;
    constexpr int kFlags = O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NONBLOCK;
    m_descriptor = open(path.c_str(), kFlags, 0666);
    struct stat information = {};
    if (m_descriptor >= 0 && fstat(m_descriptor, &information) == 0 && S_ISREG(information.st_mode))
        return true;
    Close();
    return false;
}

void AppendFile::Close()
{
    if (m_descriptor >= 0)
        close(m_descriptor);
    m_descriptor = -1;
}

bool AppendFile::Append(std::string_view text)
{
    ssize_t count = 0;
    do
        count = write(m_descriptor, text.data(), text.size());
    while (count < 0 && errno == EINTR);
    return count == static_cast<ssize_t>(text.size());
}

} // namespace vireo
