#include "platform/DetachedThread.h"

#include <system_error>
#include <thread>
#include <utility>

namespace vireo {

bool RunDetached(std::function<void()> work)
{
    try {
        std::thread(std::move(work)).detach();
        return true;
    } catch (const std::system_error&) {
        return false;
    }
}

} // namespace vireo
