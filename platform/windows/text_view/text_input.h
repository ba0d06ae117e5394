// Subclasses a rich-edit control for reading: no editing, zooming, beeping, and no copying by
// itself.
#pragma once

#include "platform/windows/text_view/rich_edit.h"

#include <functional>
#include <string>
#include <vector>

// Outlives the control.
struct TextInputEvents {
    std::function<void(POINT onScreen)> onContextMenu;
    std::function<void(HWND control, std::vector<std::u16string> paths)> onDrop;
    std::function<void()> onCopy;
    std::function<void()> onRefill;
    Pointer pointer = Pointer::Default;
};

void AttachInput(RichEdit& control, const TextInputEvents& events);
void PostRefill(HWND control);   // calls `onRefill` from the message loop
void UpdateCursor(HWND control); // when the pointer is over it
