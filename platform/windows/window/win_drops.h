// Files dropped on a window. The drop returns at once, so that its source is not blocked; the
// handler is called from the message loop, after the window was brought to the foreground: a
// message box about the files then has the focus. A shortcut stands for the file that it leads to.
#pragma once

#include "platform/windows/base/win_native_window.h"

#include <shellapi.h>

#include <deque>
#include <functional>
#include <string>
#include <vector>

class WinDrops {
  public:
    using Handler = std::function<void(const std::vector<std::u16string>& paths)>; // or null
    explicit WinDrops(const Handler& handler); // which outlives this and may be reassigned

    void Add(HWND target, std::vector<std::u16string> paths);

  private:
    struct Drop {
        HWND window; // top-level
        std::vector<std::u16string> paths;
    };
    void HandleNext();

    const Handler& handler_;
    std::deque<Drop> pending_;
    WinNativeWindow window_;
};

std::vector<std::u16string> DroppedFiles(HDROP); // full paths, in the order of the drop
std::vector<std::u16string> FinishDrop(HDROP);   // calls DragFinish
