// Layout of the main window and its remembered place.
#pragma once

#include <cstdint>

struct MainForm;

// The window's state and its last normal rectangle, in twips.
struct WindowPlacement {
    std::int32_t State = 0, Left = 0, Top = 0, Width = 0, Height = 0;
    bool operator==(const WindowPlacement&) const = default;
};

void fwMain_Resize(MainForm&); // moved, resized or changed state
void FitStatusBar(MainForm&);  // gives it the height that goes with the screen's resolution
void LayOutForm(MainForm&);    // places status bar, panel and views; nothing while minimised

// In the section of the current profile, in pixels.
void SaveWindowPlacement(MainForm&);
// Applies the stored state at once and returns the rest; missing keys give what the window has.
WindowPlacement LoadWindowPlacement(MainForm&);
// Moves the window to its remembered normal rectangle.
void MoveToPlacement(MainForm&);
