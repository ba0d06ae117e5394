// The messages that the main window posts to itself, all in one place: its parts, the menu bar
// among them, see the same numbers.
#pragma once

#include "platform/windows/base/win32.h"

enum WindowMessage : UINT {
    OpenMenuMessage = WM_APP + 1,
    OpenContextMenuMessage,
    PopupClosedMessage,
    ShownMessage,
};
