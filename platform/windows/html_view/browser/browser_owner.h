// What the browser control asks of the view that owns it, and reports to it.
#pragma once

#include "platform/windows/base/win32.h"

#include <string>
#include <vector>

class BrowserOwner {
  public:
    enum class Target { Page, Frame, NewWindow };

    // `sends` is true for a form that is submitted.
    virtual bool AllowNavigation(const std::wstring& url, Target, bool sends) = 0;
    virtual void OnPageComplete(const std::wstring& url) = 0; // with all its frames
    virtual void OnPageFailed() = 0;
    virtual void OnEngineQuit() = 0;
    virtual void OnContextMenu(POINT) = 0; // in screen coordinates
    virtual void OnFilesDropped(const std::vector<std::u16string>& paths) = 0;

  protected:
    ~BrowserOwner() = default;
};
