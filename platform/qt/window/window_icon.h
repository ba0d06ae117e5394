// The window's icon.
#pragma once

#include <QIcon>

class QWidget;

QIcon ProgramIcon();

// Gives the window its icon once it has been painted: reading pictures must not delay its first
// showing.
void ShowIconWhenIdle(QWidget& window);
