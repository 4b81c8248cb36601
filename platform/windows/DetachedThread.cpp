#include "platform/DetachedThread.h"

#include <windows.h>

#include <cstdint>
#include <memory>
#include <process.h>
#include <utility>

namespace vireo {

namespace {

using Work = std::function<void()>;

unsigned __stdcall Run(void* work)
{
    const std::unique_ptr<Work> owned(static_cast<Work*>(work));
    (*owned)();
    return 0;
}

} // namespace

/// By the system's own means: of std::thread's, detached while another one ends, about one in a
/// thousand never ran with MinGW-w64 10.
bool RunDetached(std::function<void()> work)
{
    auto owned = std::make_unique<Work>(std::move(work));
    const std::uintptr_t thread = _beginthreadex(nullptr, 0, Run, owned.get(), 0, nullptr);
    if (thread == 0)
        return false;
    static_cast<void>(owned.release()); // The thread's now.
    CloseHandle(reinterpret_cast<HANDLE>(thread));
    return true;
}

} // namespace vireo
