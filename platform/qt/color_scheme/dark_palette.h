// The colours of windows and dialogs under a dark scheme, for a style that has none of its own.
#pragma once

#include <QPalette>

QPalette DarkPalette();
bool IsDark(const QPalette&);
