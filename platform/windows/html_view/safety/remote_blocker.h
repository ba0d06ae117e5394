// Keeps the whole process from loading anything of another machine, or of this one outside the
// book's folder, through the system's URL monikers, which the browser engine loads everything with:
// pages, frames, pictures, style sheets, fonts.
#pragma once

#include "platform/windows/base/com_object.h"
#include "platform/windows/html_view/safety/book_folder.h"

#include <urlmon.h>

#include <string>
#include <vector>

class RemoteBlocker {
  public:
    // What the system does not let us take over is left to the engine's offline mode.
    explicit RemoteBlocker(BookFolder folder);
    ~RemoteBlocker();
    RemoteBlocker(const RemoteBlocker&) = delete;
    RemoteBlocker& operator=(const RemoteBlocker&) = delete;

  private:
    ComPtr<IInternetSession> session_;
    ComPtr<IClassFactory> handlers_;
    std::vector<const wchar_t*> schemes_; // that are taken over
};
