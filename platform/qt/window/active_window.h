// A window of the program that gets the keyboard while a menu is open.
#pragma once

class QWindow;

// Qt takes no note of it as long as the menu is open, nor later: the window would be deaf to its
// shortcuts and show no focus. So it is made the active one here, and a menu of another window
// closes, as on Windows. For each window that gets the focus; null is another program's.
void TakeNoteOfActiveWindow(QWindow*);
