// Resolution, and the system's fonts at it.
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

int ScreenDpi();                      // of the main screen
int DpiOf(HWND);                      // dots per inch where the window is; 96 is 100 %
NONCLIENTMETRICSW MetricsAt(int dpi); // the fonts of menus, messages and status bars
SIZE TextExtent(HWND, HFONT, std::wstring_view);
bool IsFontInstalled(const wchar_t* name);

// A size of 0 leaves the height to the system; of a name too long for it the beginning is taken.
LOGFONTW LogFontOf(const ViewFont&, int dpi);
