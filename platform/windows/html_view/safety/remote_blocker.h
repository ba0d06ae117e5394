// Blocks all URL monikers of this process that lead to another host or outside the book's folder.
// The browser engine loads everything by them: pages, frames, pictures, style sheets, fonts.
#pragma once

#include "platform/windows/base/com_object.h"
#include "platform/windows/html_view/safety/book_folder.h"

#include <urlmon.h>

#include <vector>

class RemoteBlocker {
  public:
    // A scheme that cannot be registered is left to the engine's offline mode.
    explicit RemoteBlocker(BookFolder folder);
    ~RemoteBlocker();
    RemoteBlocker(const RemoteBlocker&) = delete;
    RemoteBlocker& operator=(const RemoteBlocker&) = delete;

  private:
    ComPtr<IInternetSession> session_;
    ComPtr<IClassFactory> handlers_;
    std::vector<const wchar_t*> schemes_; // registered
};
