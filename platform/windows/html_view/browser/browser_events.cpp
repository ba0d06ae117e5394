#include "platform/windows/html_view/browser/browser_events.h"

#include "platform/windows/base/com_values.h"

#include <exdispid.h>
#include <ocidl.h>

namespace {

// DISPPARAMS::rgvarg is in reverse order.
const VARIANT& Argument(const DISPPARAMS& parameters, UINT index) {
    return parameters.rgvarg[parameters.cArgs - 1 - index];
}

void Cancel(const VARIANT& cancel) {
    if (V_VT(&cancel) == (VT_BYREF | VT_BOOL)) *V_BOOLREF(&cancel) = VARIANT_TRUE;
}

bool HasPostData(const VARIANT* value) {
    while (value && V_VT(value) == (VT_BYREF | VT_VARIANT))
        value = V_VARIANTREF(value);
    return value && (V_VT(value) & VT_ARRAY);
}

} // namespace

HRESULT BrowserEvents::Advise(IWebBrowser2* browser) {
    page_ = Query<IUnknown>(browser);
    const auto container = Query<IConnectionPointContainer>(browser);
    if (!page_ || !container) return E_NOINTERFACE;
    const HRESULT found = container->FindConnectionPoint(__uuidof(DWebBrowserEvents2), &source_);
    if (FAILED(found)) return found;
    return source_->Advise(this, &cookie_);
}

void BrowserEvents::Unadvise() {
    if (source_ && cookie_) source_->Unadvise(cookie_);
    source_.Reset();
    page_.Reset();
    cookie_ = 0;
}

HRESULT BrowserEvents::QueryInterface(REFIID id, void** found) noexcept {
    if (found && id == __uuidof(DWebBrowserEvents2)) {
        *found = static_cast<IDispatch*>(this);
        AddRef();
        return S_OK;
    }
    return FindInterface<IDispatch>(this, id, found);
}

HRESULT BrowserEvents::Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*,
                              EXCEPINFO*, UINT*) noexcept {
    if (!parameters || !owner_) return S_OK;
    const ComPtr<IUnknown> alive(this); // the owner may release the control
    const auto has = [&](UINT count) { return parameters->cArgs >= count; };
    if (event == DISPID_BEFORENAVIGATE2 && has(7)) BeforeNavigate(*parameters);
    if (event == DISPID_NEWWINDOW3 && has(5)) NewWindow(*parameters);
    if (event == DISPID_NEWWINDOW2 && has(2)) Cancel(Argument(*parameters, 1));
    if (event == DISPID_DOCUMENTCOMPLETE && has(2)) DocumentComplete(*parameters);
    if (event == DISPID_NAVIGATEERROR && has(5)) NavigateError(*parameters);
    // A page itself is also announced as a download, of an active document.
    if (event == DISPID_FILEDOWNLOAD && has(2) &&
        V_BOOL(&Argument(*parameters, 0)) == VARIANT_FALSE)
        Cancel(Argument(*parameters, 1));
    if (event == DISPID_ONQUIT) owner_->OnEngineQuit();
    return S_OK;
}

// Browser, address, flags, frame, data, headers, cancel.
void BrowserEvents::BeforeNavigate(const DISPPARAMS& parameters) {
    const bool isPage = IsPage(Argument(parameters, 0));
    const std::wstring url = TextOf(&Argument(parameters, 1));
    const auto target = isPage ? BrowserOwner::Target::Page : BrowserOwner::Target::Frame;
    if (!owner_->AllowNavigation(url, target, HasPostData(&Argument(parameters, 4))))
        Cancel(Argument(parameters, 6));
}

// Browser, cancel, flags, address of the page, address.
void BrowserEvents::NewWindow(const DISPPARAMS& parameters) {
    Cancel(Argument(parameters, 1));
    owner_->AllowNavigation(TextOf(&Argument(parameters, 4)), BrowserOwner::Target::NewWindow,
                            false);
}

// Browser, address.
void BrowserEvents::DocumentComplete(const DISPPARAMS& parameters) {
    if (IsPage(Argument(parameters, 0))) owner_->OnPageComplete(TextOf(&Argument(parameters, 1)));
}

// Browser, address, frame, status, cancel. Not cancelled, the engine would show its own error page.
void BrowserEvents::NavigateError(const DISPPARAMS& parameters) {
    Cancel(Argument(parameters, 4));
    if (IsPage(Argument(parameters, 0))) owner_->OnPageFailed();
}

bool BrowserEvents::IsPage(const VARIANT& browser) const {
    if (V_VT(&browser) != VT_DISPATCH) return false;
    const auto identity = Query<IUnknown>(V_DISPATCH(&browser));
    return identity && identity.Get() == page_.Get();
}
