// The remembered place of the main window.
#pragma once

#include "datafile/ini_file.h"
#include "platform/window.h"

#include <cstdint>
#include <string>

// The window's state (a WindowState) and its last normal rectangle, in twips.
struct WindowPlacement {
    std::int32_t State = 0, Left = 0, Top = 0, Width = 0, Height = 0;
    bool operator==(const WindowPlacement&) const = default;
};

// The window was moved, resized or changed its state. A window that becomes normal again is moved
// to its last normal rectangle. Full screen is nothing that is remembered.
void FollowWindow(WindowPlacement&, Window&);

// In the section of the profile, in pixels. A normal window's rectangle is taken first.
void SaveWindowPlacement(WindowPlacement&, IniFile&, const std::u16string& profile, const Window&);
// Applies the stored state at once, or when full screen is left, and returns the rest; missing keys
// give what the window has.
WindowPlacement LoadWindowPlacement(IniFile&, const std::u16string& profile, Window&);
// Moves the window to the normal rectangle.
void MoveToPlacement(const WindowPlacement&, Window&);

// Back to the state and the rectangle that are remembered.
void LeaveFullScreen(const WindowPlacement&, Window&);
