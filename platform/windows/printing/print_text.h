// Printing the text of a pane by the system's dialog.
#pragma once

#include "platform/text_view.h"
#include "platform/windows/base/win32.h"
#include "view/text_pane.h"

PrintAnswer PrintText(HWND owner, const TextPane& pane, const std::u16string& title);
