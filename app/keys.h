// Keys of the window: shortcuts of menu commands, the font size and the last unmarked position.
#pragma once

struct MainForm;

void Form_KeyDown(MainForm&, int keyCode, int shift);
void Form_KeyUp(MainForm&, int keyCode, int shift);

// Edit > Copy, as its key does it.
void ChooseCopy(MainForm&);

// Puts the shortcut texts into the captions of their commands.
void ShowShortcuts(MainForm&);
