// Messages that the main window and its menu bar post to the main window: one range of numbers.
#pragma once

#include "platform/windows/base/win32.h"

enum WindowMessage : UINT {
    OpenMenuMessage = WM_APP + 1,
    OpenContextMenuMessage,
    PopupClosedMessage,
    ShownMessage,
    MenuBarLeftMessage,
};
