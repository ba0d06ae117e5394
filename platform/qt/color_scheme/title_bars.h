// Title bars that the window manager draws, in the scheme of their windows.
#pragma once

class QWindow;

// By the property that most window managers of X11 go by; elsewhere nothing happens.
void SetDarkTitleBar(QWindow& window, bool dark);
