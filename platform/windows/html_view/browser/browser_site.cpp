#include "platform/windows/html_view/browser/browser_site.h"

#include "platform/windows/html_view/safety/page_security.h"

#include <idispids.h>
#include <mshtmdid.h>
#include <oleauto.h>
#include <olectl.h>

#include <new>

namespace {

// Local pictures only: no sound, video, script, ActiveX or network.
constexpr DWORD downloadControl = DLCTL_DLIMAGES | DLCTL_NO_SCRIPTS | DLCTL_NO_JAVA |
                                  DLCTL_NO_RUNACTIVEXCTLS | DLCTL_NO_DLACTIVEXCTLS |
                                  DLCTL_NO_BEHAVIORS | DLCTL_NO_CLIENTPULL | DLCTL_FORCEOFFLINE |
                                  DLCTL_SILENT;

// CGID_DocHostCommandHandler, which not every uuid library has.
constexpr GUID docHostCommandHandler = {
    0xf38bc242, 0xb950, 0x11d1, {0x89, 0x18, 0x00, 0xc0, 0x4f, 0xc2, 0xc8, 0x36}};

void PutBool(VARIANT& result, bool value) {
    V_VT(&result) = VT_BOOL;
    V_BOOL(&result) = value ? VARIANT_TRUE : VARIANT_FALSE;
}

} // namespace

HRESULT BrowserSite::QueryInterface(REFIID id, void** found) noexcept {
    return FindInterface<IOleClientSite, IOleWindow, IOleInPlaceSite, IDocHostUIHandler,
                         IDocHostShowUI, IServiceProvider, IOleCommandTarget, IDispatch>(this, id,
                                                                                         found);
}

HRESULT BrowserSite::SaveObject() noexcept {
    return E_NOTIMPL;
}

HRESULT BrowserSite::GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept {
    if (moniker) *moniker = nullptr;
    return E_NOTIMPL;
}

HRESULT BrowserSite::GetContainer(IOleContainer** container) noexcept {
    if (container) *container = nullptr;
    return E_NOINTERFACE;
}

HRESULT BrowserSite::ShowObject() noexcept {
    return S_OK;
}

HRESULT BrowserSite::OnShowWindow(BOOL) noexcept {
    return S_OK;
}

HRESULT BrowserSite::RequestNewObjectLayout() noexcept {
    return E_NOTIMPL;
}

HRESULT BrowserSite::QueryService(REFGUID service, REFIID id, void** found) noexcept {
    if (!found) return E_POINTER;
    *found = nullptr;
    if (service != __uuidof(IInternetSecurityManager)) return E_NOINTERFACE;
    const auto security = Adopt<PageSecurity>(new (std::nothrow) PageSecurity);
    return security ? security->QueryInterface(id, found) : E_OUTOFMEMORY;
}

HRESULT BrowserSite::QueryStatus(const GUID*, ULONG, OLECMD[], OLECMDTEXT*) noexcept {
    return OLECMDERR_E_NOTSUPPORTED;
}

HRESULT BrowserSite::Exec(const GUID* group, DWORD command, DWORD, VARIANT*,
                          VARIANT* result) noexcept {
    if (!group || *group != docHostCommandHandler) return OLECMDERR_E_UNKNOWNGROUP;
    if (command != OLECMDID_SHOWSCRIPTERROR && command != OLECMDID_SHOWMESSAGE)
        return OLECMDERR_E_NOTSUPPORTED;
    if (result) PutBool(*result, true); // continue running scripts
    return S_OK;
}

HRESULT BrowserSite::Invoke(DISPID property, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result,
                            EXCEPINFO*, UINT*) noexcept {
    if (!result) return E_POINTER;
    VariantInit(result);
    switch (property) {
    case DISPID_AMBIENT_DLCONTROL:
        V_VT(result) = VT_I4;
        V_I4(result) = static_cast<LONG>(downloadControl);
        return S_OK;
    case DISPID_AMBIENT_SILENT:
    case DISPID_AMBIENT_USERMODE: PutBool(*result, true); return S_OK;
    default: return DISP_E_MEMBERNOTFOUND;
    }
}
