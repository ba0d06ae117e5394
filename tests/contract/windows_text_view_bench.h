// Windows to test the text view in.
#pragma once

#include "platform/windows/win32.h"

// A top-level window that is never shown, for the whole run.
HWND HiddenWindow();
