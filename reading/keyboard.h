// Keys: shortcuts of menu commands, the font size and the last unmarked position.
#pragma once

#include "platform/html_view.h"

struct MainForm;

void Form_KeyDown(MainForm&, int keyCode, int shift);
void Form_KeyUp(MainForm&, int keyCode, int shift);
void fwMain_Zoom(MainForm&, int steps); // Ctrl and the wheel; each step is one point

void rtMain_Copy(MainForm&);                 // Edit > Copy, asked for by another program
void wbMain_Command(MainForm&, PageCommand); // of the HTML view's context menu

// Puts the shortcut texts into the captions of their commands.
void ShowShortcuts(MainForm&);
