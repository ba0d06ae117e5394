// The system's browser control in a window of ours.
#pragma once

#include "platform/windows/html_view/browser/browser_events.h"
#include "platform/windows/html_view/browser/browser_site.h"

#include <functional>
#include <memory>
#include <string>

// Creates the control; tests replace it.
using BrowserFactory = std::function<HRESULT(IUnknown** control)>;
HRESULT CreateSystemBrowser(IUnknown** control);

// Failures are reported by return values only; a void function that fails does nothing.
class BrowserControl {
  public:
    // Null when there is no control, or it lacks an interface that we need.
    static std::unique_ptr<BrowserControl> Open(const BrowserFactory&, HWND window, BrowserOwner&);
    ~BrowserControl();
    BrowserControl(const BrowserControl&) = delete;
    BrowserControl& operator=(const BrowserControl&) = delete;

    bool Load(const std::wstring& url);
    ComPtr<IDispatch> Document() const; // may be null
    void FitWindow();
    void ActivateUi();
    bool TranslateAccelerator(const MSG&); // true when it was an accelerator
    bool SetZoom(int percent);

  private:
    BrowserControl() = default;
    HRESULT Connect(const BrowserFactory&, HWND, BrowserOwner&);
    HRESULT Configure();
    HRESULT Show(LONG verb);

    HWND window_ = nullptr;
    ComPtr<IOleObject> object_;
    ComPtr<IWebBrowser2> browser_;
    ComPtr<BrowserSite> site_;
    ComPtr<BrowserEvents> events_;
};
