#include "platform/windows/html_view/browser/browser_control.h"

#include "platform/windows/base/com_values.h"
#include "platform/windows/base/system_library.h"

#include <docobj.h>

// The control may be registered without its engine, and would then stay empty.
HRESULT CreateSystemBrowser(IUnknown** control) {
    static const HMODULE engine = LoadSystemLibrary(L"mshtml.dll");
    if (!engine) return HRESULT_FROM_WIN32(ERROR_MOD_NOT_FOUND);
    return CoCreateInstance(__uuidof(WebBrowser), nullptr, CLSCTX_INPROC_SERVER, __uuidof(IUnknown),
                            reinterpret_cast<void**>(control));
}

std::unique_ptr<BrowserControl> BrowserControl::Open(const BrowserFactory& make, HWND window,
                                                     BrowserOwner& owner) {
    std::unique_ptr<BrowserControl> control(new BrowserControl);
    if (FAILED(control->Connect(make, window, owner))) return nullptr;
    return control;
}

HRESULT BrowserControl::Connect(const BrowserFactory& make, HWND window, BrowserOwner& owner) {
    window_ = window;
    site_ = Adopt<BrowserSite>(new BrowserSite(window, owner));
    events_ = Adopt<BrowserEvents>(new BrowserEvents(owner));
    ComPtr<IUnknown> made;
    HRESULT result = make(&made);
    if (FAILED(result)) return result;
    object_ = Query<IOleObject>(made);
    browser_ = Query<IWebBrowser2>(made);
    if (!object_ || !browser_) return E_NOINTERFACE;
    result = object_->SetClientSite(site_.Get());
    if (SUCCEEDED(result)) result = events_->Advise(browser_.Get());
    if (SUCCEEDED(result)) result = Configure();
    if (SUCCEEDED(result)) result = Show(OLEIVERB_INPLACEACTIVATE);
    return result;
}

HRESULT BrowserControl::Configure() {
    // Hosted in a window the control has no bars; some versions return an error here.
    browser_->put_AddressBar(VARIANT_FALSE);
    browser_->put_MenuBar(VARIANT_FALSE);
    browser_->put_ToolBar(FALSE);
    browser_->put_StatusBar(VARIANT_FALSE);
    const HRESULT silent = browser_->put_Silent(VARIANT_TRUE);
    return FAILED(silent) ? silent : browser_->put_RegisterAsDropTarget(VARIANT_TRUE);
}

HRESULT BrowserControl::Show(LONG verb) {
    RECT place = {};
    GetClientRect(window_, &place);
    return object_->DoVerb(verb, nullptr, site_.Get(), 0, window_, &place);
}

BrowserControl::~BrowserControl() {
    site_->Disconnect();
    events_->Disconnect();
    events_->Unadvise();
    if (!object_) return;
    object_->Close(OLECLOSE_NOSAVE);
    object_->SetClientSite(nullptr);
}

bool BrowserControl::Load(const std::wstring& url) {
    Variant address(url), flags(navNoHistory), none;
    return SUCCEEDED(
        browser_->Navigate2(address.Put(), flags.Put(), none.Put(), none.Put(), none.Put()));
}

ComPtr<IDispatch> BrowserControl::Document() const {
    ComPtr<IDispatch> document;
    if (FAILED(browser_->get_Document(&document))) return {};
    return document;
}

void BrowserControl::FitWindow() {
    RECT place = {};
    GetClientRect(window_, &place);
    if (const auto inPlace = Query<IOleInPlaceObject>(browser_))
        inPlace->SetObjectRects(&place, &place);
}

void BrowserControl::ActivateUi() {
    Show(OLEIVERB_UIACTIVATE);
}

bool BrowserControl::TranslateAccelerator(const MSG& message) {
    MSG changeable = message;
    const auto active = Query<IOleInPlaceActiveObject>(browser_);
    return active && active->TranslateAccelerator(&changeable) == S_OK;
}

bool BrowserControl::SetZoom(int percent) {
    Variant factor(static_cast<LONG>(percent));
    return SUCCEEDED(browser_->ExecWB(OLECMDID_OPTICAL_ZOOM, OLECMDEXECOPT_DONTPROMPTUSER,
                                      factor.Put(), nullptr));
}
