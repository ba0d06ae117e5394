// What a rich-edit control of a reader does with keys, mouse and drops: it reads, and neither
// edits nor zooms nor beeps, nor copies by itself.
#pragma once

#include "platform/windows/text_view/rich_edit.h"

#include <functional>
#include <string>
#include <vector>

// What the control reports; lives longer than it.
struct TextInputEvents {
    std::function<void(POINT onScreen)> onContextMenu;
    std::function<void(HWND control, std::vector<std::u16string> paths)> onDrop;
    std::function<void()> onCopy;
    std::function<void()> onRefill;
    Pointer pointer = Pointer::Default;
};

void AttachInput(RichEdit& control, TextInputEvents& events);
void PostRefill(HWND control);   // `onRefill` will be called by the message loop
void UpdateCursor(HWND control); // when the mouse is over it
