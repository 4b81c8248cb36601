#include "platform/TaskBar.h"

#include <shobjidl.h>

namespace vireo {

void ShowOnTaskBar(std::uintptr_t window, bool visible)
{
    ITaskbarList* taskBar = nullptr;
    if (FAILED(CoCreateInstance(CLSID_TaskbarList, nullptr, CLSCTX_INPROC_SERVER, IID_ITaskbarList,
            reinterpret_cast<void**>(&taskBar))))
        return;
    const auto native = reinterpret_cast<HWND>(window);
    if (SUCCEEDED(taskBar->HrInit()))
        static_cast<void>(visible ? taskBar->AddTab(native) : taskBar->DeleteTab(native));
    taskBar->Release();
}

} // namespace vireo
