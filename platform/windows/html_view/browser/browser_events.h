// The events of the browser control.
#pragma once

#include "platform/windows/base/com_object.h"
#include "platform/windows/html_view/browser/browser_owner.h"

#include <exdisp.h>

class BrowserEvents final : public ComObject<InvokeOnlyDispatch> {
  public:
    explicit BrowserEvents(BrowserOwner& owner) : owner_(&owner) {}
    void Disconnect() { owner_ = nullptr; } // no more calls from here on

    // Starts the events of `browser`.
    HRESULT Advise(IWebBrowser2* browser);
    void Unadvise();

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) noexcept override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) noexcept override;

  private:
    void BeforeNavigate(const DISPPARAMS&);
    void NewWindow(const DISPPARAMS&);
    void DocumentComplete(const DISPPARAMS&);
    void NavigateError(const DISPPARAMS&);
    bool IsPage(const VARIANT& browser) const;

    BrowserOwner* owner_;
    ComPtr<IUnknown> page_; // the control's identity; a frame in the page has another one
    ComPtr<IConnectionPoint> source_;
    DWORD cookie_ = 0;
};
