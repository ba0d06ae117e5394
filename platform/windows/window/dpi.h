// DPI, and fonts at it.
#pragma once

#include "platform/text_view.h"
#include "platform/windows/base/win32.h"

#include <memory>
#include <string_view>
#include <type_traits>

struct WinFontDeleter {
    void operator()(HFONT font) const { DeleteObject(font); }
};
using WinFont = std::unique_ptr<std::remove_pointer_t<HFONT>, WinFontDeleter>;

int SystemDpi();                                   // of the primary screen
int WindowDpi(HWND);                               // 96 at 100 %
NONCLIENTMETRICSW NonClientMetricsForDpi(int dpi); // the fonts of menus, messages and status bars
SIZE MeasureText(HWND, HFONT, std::wstring_view);
bool IsFontInstalled(const wchar_t* name);

// A size of 0 leaves the height to the system; a name is cut to LF_FACESIZE.
LOGFONTW ToLogFont(const ViewFont&, int dpi);
