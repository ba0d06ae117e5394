// The system's message box, centred over its owner.
#pragma once

#include "platform/windows/base/win32.h"

#include <functional>
#include <string>

// `style` and result as of MessageBoxW; MB_USERICON shows the program's own icon. `onHelp` runs
// when the Help button of MB_HELP is pressed; the box stays open.
int ShowMessageBox(HWND owner, const std::u16string& text, const std::u16string& title, UINT style,
                   const std::function<void()>& onHelp = nullptr);

// With the program's own icon.
int ShowMessageBoxWithAppIcon(HWND owner, const std::u16string& text, const std::u16string& title,
                              UINT style);
