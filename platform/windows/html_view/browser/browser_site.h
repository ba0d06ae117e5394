// The client site of the browser control.
#pragma once

#include "platform/windows/html_view/browser/document_host.h"
#include "platform/windows/html_view/browser/in_place_site.h"

#include <docobj.h>
#include <servprov.h>

class BrowserSite final
    : public ComObject<IOleClientSite, InPlaceSite, DocumentHost, IServiceProvider,
                       IOleCommandTarget, InvokeOnlyDispatch> {
  public:
    BrowserSite(HWND window, BrowserOwner& owner) {
        SetWindow(window);
        SetOwner(owner);
    }
    using DocumentHost::Disconnect; // the owner gets no more calls

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) noexcept override;

    // IOleClientSite
    HRESULT STDMETHODCALLTYPE SaveObject() noexcept override;
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker**) noexcept override;
    HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer**) noexcept override;
    HRESULT STDMETHODCALLTYPE ShowObject() noexcept override;
    HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL) noexcept override;
    HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() noexcept override;

    // IServiceProvider: the security manager
    HRESULT STDMETHODCALLTYPE QueryService(REFGUID, REFIID, void**) noexcept override;

    // IOleCommandTarget: suppresses script errors and messages
    HRESULT STDMETHODCALLTYPE QueryStatus(const GUID*, ULONG, OLECMD[],
                                          OLECMDTEXT*) noexcept override;
    HRESULT STDMETHODCALLTYPE Exec(const GUID*, DWORD command, DWORD, VARIANT*,
                                   VARIANT*) noexcept override;

    // IDispatch: the ambient properties
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) noexcept override;
};
