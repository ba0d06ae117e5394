#include "platform/windows/window/title_bar.h"

#include "platform/windows/base/system_library.h"

bool PrefersDarkPrograms() {
    HIGHCONTRASTW contrast = {};
    contrast.cbSize = sizeof contrast;
    if (SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
        (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0)
        return false;
    DWORD light = 1, size = sizeof light;
    const LSTATUS read = RegGetValueW(
        HKEY_CURRENT_USER, L"Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize",
        L"AppsUseLightTheme", RRF_RT_REG_DWORD, nullptr, &light, &size);
    return read == ERROR_SUCCESS && light == 0;
}

void FollowColorScheme(HWND window) {
    constexpr DWORD useImmersiveDarkMode = 20; // DWMWA_USE_IMMERSIVE_DARK_MODE
    HRESULT(WINAPI * setAttribute)(HWND, DWORD, const void*, DWORD) = nullptr;
    if (!FindFunction(LoadSystemLibrary(L"dwmapi.dll"), "DwmSetWindowAttribute", setAttribute))
        return;
    const BOOL dark = PrefersDarkPrograms();
    setAttribute(window, useImmersiveDarkMode, &dark, sizeof dark);
}
