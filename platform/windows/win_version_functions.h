// The system's reader of version information. Its library is loaded when it is first asked for:
// the system knows no fixed place for it, and would take one beside the program at the start.
#pragma once

#include "platform/windows/win32.h"

struct WinVersionFunctions {
    decltype(&::GetFileVersionInfoSizeW) Size;
    decltype(&::GetFileVersionInfoW) Read;
    decltype(&::VerQueryValueW) Query;
};

const WinVersionFunctions* LoadVersionFunctions(); // null where the system has none
