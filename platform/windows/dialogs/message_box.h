// The system's message box, centred over its owner.
#pragma once

#include "platform/windows/base/win32.h"

#include <functional>
#include <string>

// `style` as of MessageBoxW (MB_USERICON is the program's own icon), and what it answers: the
// pressed button (IDOK...). `onHelp` runs when the Help button of MB_HELP is pressed; the box stays
// open.
int ShowMessageBox(HWND owner, const std::u16string& text, const std::u16string& title, UINT style,
                   const std::function<void()>& onHelp = nullptr);

// A message box that carries the program's own icon: resource 1 of the executable.
int ShowMessageBoxWithAppIcon(HWND owner, const std::u16string& text, const std::u16string& title,
                              UINT style);
