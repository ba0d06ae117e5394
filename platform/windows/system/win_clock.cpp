#include "platform/windows/system/win_clock.h"

#include "platform/windows/base/win32.h"

DateTime WinClock::Now() const {
    SYSTEMTIME now = {};
    GetLocalTime(&now);
    return {now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond};
}

void WinClock::Wait(int milliseconds) {
    Sleep(static_cast<DWORD>(milliseconds));
}
