// The window's icon.
#pragma once

#include <QIcon>

class QWidget;

QIcon ProgramIcon();

// Sets the icon after the first paint, because loading the images would delay it.
void SetIconWhenIdle(QWidget& window);
