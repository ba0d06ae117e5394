// The document's host: flat, themed, with our context menu and accelerators, without message boxes.
#pragma once

#include "platform/windows/base/com_object.h"
#include "platform/windows/html_view/browser/browser_owner.h"

#include <mshtmhst.h>

// The part of the client site that MSHTML queries.
class DocumentHost : public IDocHostUIHandler, public IDocHostShowUI {
  public:
    HRESULT STDMETHODCALLTYPE ShowContextMenu(DWORD kind, POINT* place, IUnknown*,
                                              IDispatch*) noexcept override;
    HRESULT STDMETHODCALLTYPE GetHostInfo(DOCHOSTUIINFO*) noexcept override;
    HRESULT STDMETHODCALLTYPE ShowUI(DWORD, IOleInPlaceActiveObject*, IOleCommandTarget*,
                                     IOleInPlaceFrame*, IOleInPlaceUIWindow*) noexcept override;
    HRESULT STDMETHODCALLTYPE HideUI() noexcept override;
    HRESULT STDMETHODCALLTYPE UpdateUI() noexcept override;
    HRESULT STDMETHODCALLTYPE EnableModeless(BOOL) noexcept override;
    HRESULT STDMETHODCALLTYPE OnDocWindowActivate(BOOL) noexcept override;
    HRESULT STDMETHODCALLTYPE OnFrameWindowActivate(BOOL) noexcept override;
    HRESULT STDMETHODCALLTYPE ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) noexcept override;
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG, const GUID*, DWORD) noexcept override;
    HRESULT STDMETHODCALLTYPE GetOptionKeyPath(LPOLESTR*, DWORD) noexcept override;
    HRESULT STDMETHODCALLTYPE GetDropTarget(IDropTarget*, IDropTarget**) noexcept override;
    HRESULT STDMETHODCALLTYPE GetExternal(IDispatch**) noexcept override;
    HRESULT STDMETHODCALLTYPE TranslateUrl(DWORD, LPWSTR, LPWSTR*) noexcept override;
    HRESULT STDMETHODCALLTYPE FilterDataObject(IDataObject*, IDataObject**) noexcept override;

    HRESULT STDMETHODCALLTYPE ShowMessage(HWND, LPOLESTR, LPOLESTR, DWORD, LPOLESTR, DWORD,
                                          LRESULT*) noexcept override;
    HRESULT STDMETHODCALLTYPE ShowHelp(HWND, LPOLESTR, UINT, DWORD, POINT,
                                       IDispatch*) noexcept override;

  protected:
    ~DocumentHost() = default;
    void SetOwner(BrowserOwner& owner) { owner_ = &owner; }
    void Disconnect();

  private:
    BrowserOwner* owner_ = nullptr;
    ComPtr<IDropTarget> dropTarget_;
};
