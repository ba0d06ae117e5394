// The window's icon.
#pragma once

class QWidget;

// Gives the window its icon once it has been painted: reading pictures must not delay its first
// showing.
void ShowIconWhenIdle(QWidget& window);
