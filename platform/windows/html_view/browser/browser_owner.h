// What the browser control asks and tells the view that it belongs to.
#pragma once

#include "platform/windows/base/win32.h"

#include <string>
#include <vector>

class BrowserOwner {
  public:
    enum class Target { Page, Frame, NewWindow };

    // Whether the control may load `url`. `sends` is true for a form that would send its fields.
    virtual bool MayLoad(const std::wstring& url, Target, bool sends) = 0;
    virtual void PageComplete(const std::wstring& url) = 0; // all frames too
    virtual void PageFailed() = 0;
    virtual void EngineGone() = 0;
    virtual void MenuWanted(POINT) = 0; // a context menu, on the screen
    virtual void FilesDropped(const std::vector<std::u16string>& paths) = 0;

  protected:
    ~BrowserOwner() = default;
};
