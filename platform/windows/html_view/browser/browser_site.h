// The client site of the browser control: where it asks for everything that it wants of us.
#pragma once

#include "platform/windows/html_view/browser/document_host.h"
#include "platform/windows/html_view/browser/in_place_site.h"

#include <docobj.h>
#include <servprov.h>

class BrowserSite final : public ComObject<IOleClientSite, InPlaceSite, DocumentHost,
                                           IServiceProvider, IOleCommandTarget, IDispatch> {
  public:
    BrowserSite(HWND window, BrowserOwner& owner) {
        SetWindow(window);
        SetOwner(owner);
    }
    using DocumentHost::Disconnect; // the owner is not told of anything any more

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

    // IOleCommandTarget: errors and messages are taken and not shown
    HRESULT STDMETHODCALLTYPE QueryStatus(const GUID*, ULONG, OLECMD[],
                                          OLECMDTEXT*) noexcept override;
    HRESULT STDMETHODCALLTYPE Exec(const GUID*, DWORD command, DWORD, VARIANT*,
                                   VARIANT*) noexcept override;

    // IDispatch: the ambient properties
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID,
                                            DISPID*) noexcept override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) noexcept override;
};
