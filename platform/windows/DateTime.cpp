#include "platform/Log.h"

#include <windows.h>

namespace vireo {

CDateTime CDateTime::Now()
{
    SYSTEMTIME now = {};
    GetLocalTime(&now);
    return {
        now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond, now.wMilliseconds};
}

} // namespace vireo
