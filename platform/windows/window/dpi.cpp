#include "platform/windows/window/dpi.h"

#include "platform/windows/base/system_library.h"

#include <algorithm>
#include <cmath>

namespace {

// Null on a Windows that does not have it.
template <typename Function>
Function* User32Function(const char* name) {
    Function* function = nullptr;
    FindFunction(GetModuleHandleW(L"user32"), name, function);
    return function;
}

} // namespace

int SystemDpi() {
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return dpi;
}

// Before Windows 10 there is no GetDpiForWindow and the primary screen's DPI serves for all.
int WindowDpi(HWND window) {
    static const auto dpiForWindow = User32Function<UINT WINAPI(HWND)>("GetDpiForWindow");
    const int dpi = dpiForWindow ? static_cast<int>(dpiForWindow(window)) : 0;
    return dpi > 0 ? dpi : SystemDpi();
}

NONCLIENTMETRICSW NonClientMetricsForDpi(int dpi) {
    static const auto parametersForDpi =
        User32Function<BOOL WINAPI(UINT, UINT, void*, UINT, UINT)>("SystemParametersInfoForDpi");
    NONCLIENTMETRICSW metrics = {};
    metrics.cbSize = sizeof metrics;
    if (parametersForDpi && parametersForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0,
                                             static_cast<UINT>(dpi)))
        return metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    return metrics;
}

SIZE MeasureText(HWND window, HFONT font, std::wstring_view text) {
    SIZE extent = {};
    const HDC context = GetDC(window);
    const HGDIOBJ previous = SelectObject(context, font);
    GetTextExtentPoint32W(context, text.data(), static_cast<int>(text.size()), &extent);
    SelectObject(context, previous);
    ReleaseDC(window, context);
    return extent;
}

bool IsFontInstalled(const wchar_t* name) {
    LOGFONTW font = {};
    font.lfCharSet = DEFAULT_CHARSET;
    lstrcpynW(font.lfFaceName, name, LF_FACESIZE);
    bool found = false;
    const auto report = [](const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM answer) -> int {
        *reinterpret_cast<bool*>(answer) = true;
        return 0;
    };
    const HDC screen = GetDC(nullptr);
    EnumFontFamiliesExW(screen, &font, report, reinterpret_cast<LPARAM>(&found), 0);
    ReleaseDC(nullptr, screen);
    return found;
}

LOGFONTW ToLogFont(const ViewFont& font, int dpi) {
    constexpr double pointsPerInch = 72;
    LOGFONTW described = {};
    described.lfHeight = -static_cast<LONG>(std::lround(font.size * dpi / pointsPerInch));
    described.lfWeight = font.bold ? FW_BOLD : FW_NORMAL;
    described.lfItalic = font.italic;
    described.lfUnderline = font.underline;
    described.lfStrikeOut = font.strikethrough;
    described.lfCharSet = static_cast<BYTE>(font.charset);
    const std::size_t length = std::min<std::size_t>(font.name.size(), LF_FACESIZE - 1);
    std::copy_n(font.name.begin(), length, described.lfFaceName);
    return described;
}
