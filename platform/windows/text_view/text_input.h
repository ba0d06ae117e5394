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
    std::function<void()> onFillDue;
    Pointer pointer = Pointer::Default;
};

void AttachInput(RichEdit& control, TextInputEvents& events);
void PostFillDue(HWND control); // `onFillDue` will be called by the message loop
void ShowPointer(HWND control); // when the mouse is over it
