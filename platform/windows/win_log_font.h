// Fonts of the view as the system describes them.
#pragma once

#include "platform/text_view.h"
#include "platform/windows/win32.h"

// A size of 0 leaves the height to the system; of a name too long for it the beginning is taken.
LOGFONTW LogFontOf(const ViewFont&, int dpi);
