// Files dropped on a window of ours. The drop itself is answered at once, so that the program they
// come from goes on; what is to be done about them starts in the message loop. By then the window
// is in front and has the keyboard, which the other program had: a message about the files can be
// answered.
#pragma once

#include "platform/windows/window/win_native_window.h"

#include <shellapi.h>

#include <deque>
#include <functional>
#include <string>
#include <vector>

class WinDrops {
  public:
    using Tell = std::function<void(const std::vector<std::u16string>& paths)>; // or null
    explicit WinDrops(const Tell& tell); // which lives longer, and may change

    // Without paths nothing happened.
    void Add(HWND target, std::vector<std::u16string> paths);

  private:
    struct Drop {
        HWND window; // the whole one
        std::vector<std::u16string> paths;
    };
    void TellNext();

    const Tell& tell_;
    std::deque<Drop> waiting_;
    WinNativeWindow window_;
};

std::vector<std::u16string> DroppedFiles(HDROP);     // full paths in their order
std::vector<std::u16string> TakeDroppedFiles(HDROP); // and ends the drop
