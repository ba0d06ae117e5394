#include "platform/windows/win_screen_dpi.h"

#include "platform/windows/win32.h"

int ScreenDpi() {
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return dpi;
}
