// What the browser control asks and tells the view that it belongs to.
#pragma once

#include "platform/windows/base/win32.h"

#include <string>
#include <vector>

class BrowserOwner {
  public:
    enum class Target { Page, Frame, NewWindow };

    // Whether the control may load `url`. `sends` is true for a form that would send its fields.
    virtual bool AllowNavigation(const std::wstring& url, Target, bool sends) = 0;
    virtual void OnPageComplete(const std::wstring& url) = 0; // all frames too
    virtual void OnPageFailed() = 0;
    virtual void OnEngineQuit() = 0;
    virtual void OnContextMenu(POINT) = 0; // a context menu, on the screen
    virtual void OnFilesDropped(const std::vector<std::u16string>& paths) = 0;

  protected:
    ~BrowserOwner() = default;
};
