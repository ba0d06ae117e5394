// What the control does with its host: it activates itself there, asks, and tells events.
#define CINTERFACE
#include "tests/contract/stand_in/stand_in_browser.h"

#include <mshtmdid.h>
#include <mshtmhst.h>
#include <servprov.h>
#include <urlmon.h>

#include <exdispid.h>

namespace {

void AskFlags(StandIn& world, IOleClientSite* site) {
    if (auto* ambient = AskHost<IDispatch>(site, IID_IDispatch)) {
        VARIANT flags;
        VariantInit(&flags);
        DISPPARAMS none = {};
        if (SUCCEEDED(ambient->lpVtbl->Invoke(ambient, DISPID_AMBIENT_DLCONTROL, IID_NULL, 0,
                                              DISPATCH_PROPERTYGET, &none, &flags, nullptr,
                                              nullptr)))
            world.downloadFlags = V_I4(&flags);
        ambient->lpVtbl->Release(ambient);
    }
    if (auto* handler = AskHost<IDocHostUIHandler>(site, IID_IDocHostUIHandler)) {
        DOCHOSTUIINFO info = {};
        info.cbSize = sizeof info;
        handler->lpVtbl->GetHostInfo(handler, &info);
        world.hostFlags = info.dwFlags;
        handler->lpVtbl->Release(handler);
    }
}

void AskPolicies(StandIn& world, IOleClientSite* site) {
    auto* provider = AskHost<IServiceProvider>(site, IID_IServiceProvider);
    if (!provider) return;
    void* found = nullptr;
    if (SUCCEEDED(provider->lpVtbl->QueryService(provider, IID_IInternetSecurityManager,
                                                 IID_IInternetSecurityManager, &found))) {
        auto* manager = static_cast<IInternetSecurityManager*>(found);
        for (const DWORD action : {URLACTION_SCRIPT_RUN, URLACTION_ACTIVEX_RUN,
                                   URLACTION_HTML_META_REFRESH, URLACTION_HTML_FONT_DOWNLOAD}) {
            DWORD policy = 0xFFFF;
            manager->lpVtbl->ProcessUrlAction(manager, L"file:///c:/book.htm", action,
                                              reinterpret_cast<BYTE*>(&policy), sizeof policy,
                                              nullptr, 0, 0, 0);
            world.policies[action] = policy;
        }
        manager->lpVtbl->Release(manager);
    }
    provider->lpVtbl->Release(provider);
}

} // namespace

void StandInBrowser::TakeSite(IOleClientSite* given) {
    if (given) given->lpVtbl->AddRef(given);
    if (site) World().leftOnSite = static_cast<int>(site->lpVtbl->Release(site));
    site = given;
}

HRESULT StandInBrowser::Activate() {
    AskFlags(World(), site);
    AskPolicies(World(), site);
    auto* place = AskHost<IOleInPlaceSite>(site, IID_IOleInPlaceSite);
    if (!place) return E_NOINTERFACE;
    HWND window = nullptr;
    IOleInPlaceFrame* frame = nullptr;
    IOleInPlaceUIWindow* documentWindow = nullptr;
    RECT rect = {}, clip = {};
    OLEINPLACEFRAMEINFO info = {};
    info.cb = sizeof info;
    HRESULT result = place->lpVtbl->CanInPlaceActivate(place);
    if (SUCCEEDED(result)) result = place->lpVtbl->OnInPlaceActivate(place);
    if (SUCCEEDED(result)) result = place->lpVtbl->GetWindow(place, &window);
    if (SUCCEEDED(result))
        result =
            place->lpVtbl->GetWindowContext(place, &frame, &documentWindow, &rect, &clip, &info);
    if (frame) frame->lpVtbl->Release(frame);
    place->lpVtbl->Release(place);
    if (FAILED(result)) return result;
    World().windowHeight = rect.bottom;
    MakeWindows(window);
    return S_OK;
}

void StandInBrowser::Load(const std::wstring& address) {
    url = address;
    isLoading = Announce(address, Self(), false);
    if (!isLoading) url.clear();
}

bool StandInBrowser::Announce(const std::wstring& address, IDispatch* target, bool sends) {
    VARIANT_BOOL cancel = VARIANT_FALSE;
    VARIANT data;
    VariantInit(&data);
    if (sends) {
        V_VT(&data) = VT_ARRAY | VT_UI1;
        V_ARRAY(&data) = SafeArrayCreateVector(VT_UI1, 0, 1);
    }
    Fire(DISPID_BEFORENAVIGATE2,
         {DispatchVariant(target), TextVariant(address), BoolVariant(false), TextVariant(L""), data,
          TextVariant(L""), CancelVariant(&cancel)});
    return cancel == VARIANT_FALSE;
}

void StandInBrowser::Fire(DISPID event, std::vector<VARIANT> arguments) {
    std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
    DISPPARAMS parameters = {};
    parameters.rgvarg = reversed.data();
    parameters.cArgs = static_cast<UINT>(reversed.size());
    AddRef(); // the host may let go of the control
    if (IDispatch* listener = sink) {
        listener->lpVtbl->AddRef(listener);
        listener->lpVtbl->Invoke(listener, event, IID_NULL, 0, DISPATCH_METHOD, &parameters,
                                 nullptr, nullptr, nullptr);
        listener->lpVtbl->Release(listener);
    }
    Release();
    for (VARIANT& argument : arguments)
        VariantClear(&argument);
}

void StandInBrowser::ReplaceDocument(IDispatch* counted) {
    if (document) document->lpVtbl->Release(document);
    document = counted;
}

VARIANT BoolVariant(bool value) {
    VARIANT variant;
    VariantInit(&variant);
    V_VT(&variant) = VT_BOOL;
    V_BOOL(&variant) = value ? VARIANT_TRUE : VARIANT_FALSE;
    return variant;
}

VARIANT TextVariant(const std::wstring& text) {
    VARIANT variant;
    VariantInit(&variant);
    V_VT(&variant) = VT_BSTR;
    V_BSTR(&variant) = SysAllocString(text.c_str());
    return variant;
}

VARIANT DispatchVariant(IDispatch* object) {
    VARIANT variant;
    VariantInit(&variant);
    V_VT(&variant) = VT_DISPATCH;
    V_DISPATCH(&variant) = object;
    object->lpVtbl->AddRef(object);
    return variant;
}

VARIANT CancelVariant(VARIANT_BOOL* cancel) {
    VARIANT variant;
    VariantInit(&variant);
    V_VT(&variant) = VT_BYREF | VT_BOOL;
    V_BOOLREF(&variant) = cancel;
    return variant;
}
