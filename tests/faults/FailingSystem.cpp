// Preloaded into a program (LD_PRELOAD) it lets one of the calls fail by which files are written.
// The environment says which:
//
//   VIREO_FAIL_UNDER   folder; calls on files elsewhere are not counted
//   VIREO_FAIL_AT      the number of the call that fails, from 1 on
//   VIREO_FAIL_WITH    errno of the failure
//   VIREO_FAIL_NOTE    file that is made when it fails, and holds the name of the call

#include <climits>

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

namespace {

std::atomic<long> calls{0};

bool LiesUnder(const char* path)
{
    const char* const folder = std::getenv("VIREO_FAIL_UNDER");
    return folder != nullptr && std::strncmp(path, folder, std::strlen(folder)) == 0;
}

bool LiesUnder(int descriptor)
{
    char link[64];
    std::snprintf(link, sizeof link, "/proc/self/fd/%d", descriptor);
    char path[PATH_MAX];
    const ssize_t length = readlink(link, path, sizeof path - 1);
    if (length < 0)
        return false;
    path[length] = '\0';
    return LiesUnder(path);
}

/// By system calls of its own, so that they are not counted.
void Note(const char* call)
{
    const char* const name = std::getenv("VIREO_FAIL_NOTE");
    if (name == nullptr)
        return;
    const long file = syscall(SYS_openat, AT_FDCWD, name, O_WRONLY | O_CREAT | O_TRUNC, 0600);
    syscall(SYS_write, file, call, std::strlen(call));
    syscall(SYS_close, file);
}

bool Fails(bool isCounted, const char* call)
{
    const char* const at = std::getenv("VIREO_FAIL_AT");
    if (!isCounted || at == nullptr || ++calls != std::atol(at))
        return false;
    Note(call);
    const char* const error = std::getenv("VIREO_FAIL_WITH");
    errno = error != nullptr ? std::atoi(error) : ENOSPC;
    return true;
}

bool IsFolder(int descriptor)
{
    struct stat information = {};
    return fstat(descriptor, &information) == 0 && S_ISDIR(information.st_mode);
}

template <typename Function>
Function* Real(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

} // namespace

extern "C" {

ssize_t write(int descriptor, const void* bytes, size_t count)
{
    static const auto real = Real<ssize_t(int, const void*, size_t)>("write");
    return Fails(LiesUnder(descriptor), "write") ? -1 : real(descriptor, bytes, count);
}

ssize_t writev(int descriptor, const struct iovec* pieces, int count)
{
    static const auto real = Real<ssize_t(int, const struct iovec*, int)>("writev");
    return Fails(LiesUnder(descriptor), "writev") ? -1 : real(descriptor, pieces, count);
}

ssize_t pwrite(int descriptor, const void* bytes, size_t count, off_t offset)
{
    static const auto real = Real<ssize_t(int, const void*, size_t, off_t)>("pwrite");
    return Fails(LiesUnder(descriptor), "pwrite") ? -1 : real(descriptor, bytes, count, offset);
}

ssize_t pwrite64(int descriptor, const void* bytes, size_t count, off64_t offset)
{
    return pwrite(descriptor, bytes, count, offset);
}

ssize_t copy_file_range(
    int from, off64_t* fromOffset, int to, off64_t* toOffset, size_t count, unsigned flags)
{
    static const auto real =
        Real<ssize_t(int, off64_t*, int, off64_t*, size_t, unsigned)>("copy_file_range");
    return Fails(LiesUnder(to), "copy_file_range")
        ? -1
        : real(from, fromOffset, to, toOffset, count, flags);
}

int fsync(int descriptor)
{
    static const auto real = Real<int(int)>("fsync");
    const char* const call = IsFolder(descriptor) ? "fsync of a folder" : "fsync";
    return Fails(LiesUnder(descriptor), call) ? -1 : real(descriptor);
}

int fdatasync(int descriptor)
{
    static const auto real = Real<int(int)>("fdatasync");
    return Fails(LiesUnder(descriptor), "fdatasync") ? -1 : real(descriptor);
}

int ftruncate(int descriptor, off_t length)
{
    static const auto real = Real<int(int, off_t)>("ftruncate");
    return Fails(LiesUnder(descriptor), "ftruncate") ? -1 : real(descriptor, length);
}

int fchmod(int descriptor, mode_t mode)
{
    static const auto real = Real<int(int, mode_t)>("fchmod");
    return Fails(LiesUnder(descriptor), "fchmod") ? -1 : real(descriptor, mode);
}

int rename(const char* from, const char* to)
{
    static const auto real = Real<int(const char*, const char*)>("rename");
    return Fails(LiesUnder(to), "rename") ? -1 : real(from, to);
}

int open(const char* path, int flags, ...)
{
    static const auto real = Real<int(const char*, int, ...)>("open");
    va_list more;
    va_start(more, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(more, mode_t) : 0;
    va_end(more);
    return Fails((flags & O_CREAT) != 0 && LiesUnder(path), "open") ? -1 : real(path, flags, mode);
}

int open64(const char* path, int flags, ...)
{
    va_list more;
    va_start(more, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(more, mode_t) : 0;
    va_end(more);
    return open(path, flags, mode);
}

int mkdir(const char* path, mode_t mode)
{
    static const auto real = Real<int(const char*, mode_t)>("mkdir");
    return Fails(LiesUnder(path), "mkdir") ? -1 : real(path, mode);
}
}
