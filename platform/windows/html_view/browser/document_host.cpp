#include "platform/windows/html_view/browser/document_host.h"

#include "platform/windows/html_view/browser/page_drop_target.h"
#include "platform/windows/html_view/page/page_keys.h"
#include "platform/windows/window/win_input.h"

#include <new>

void DocumentHost::Disconnect() {
    owner_ = nullptr;
    // Only created below.
    if (dropTarget_) static_cast<PageDropTarget*>(dropTarget_.Get())->Disconnect();
}

HRESULT DocumentHost::ShowContextMenu(DWORD, POINT* place, IUnknown*, IDispatch*) noexcept {
    if (owner_ && place) owner_->OnContextMenu(*place);
    return S_OK; // the engine's own menu would save, print, navigate and show the source
}

HRESULT DocumentHost::GetHostInfo(DOCHOSTUIINFO* info) noexcept {
    if (!info) return E_POINTER;
    info->dwFlags = DOCHOSTUIFLAG_NO3DBORDER | DOCHOSTUIFLAG_NO3DOUTERBORDER | DOCHOSTUIFLAG_THEME |
                    DOCHOSTUIFLAG_DISABLE_HELP_MENU | DOCHOSTUIFLAG_DISABLE_SCRIPT_INACTIVE |
                    DOCHOSTUIFLAG_DPI_AWARE;
    info->dwDoubleClick = DOCHOSTUIDBLCLK_DEFAULT;
    return S_OK;
}

HRESULT DocumentHost::ShowUI(DWORD, IOleInPlaceActiveObject*, IOleCommandTarget*, IOleInPlaceFrame*,
                             IOleInPlaceUIWindow*) noexcept {
    return S_OK; // no menus or toolbars of the engine
}

HRESULT DocumentHost::HideUI() noexcept {
    return S_OK;
}

HRESULT DocumentHost::UpdateUI() noexcept {
    return S_OK;
}

HRESULT DocumentHost::EnableModeless(BOOL) noexcept {
    return S_OK;
}

HRESULT DocumentHost::OnDocWindowActivate(BOOL) noexcept {
    return S_OK;
}

HRESULT DocumentHost::OnFrameWindowActivate(BOOL) noexcept {
    return S_OK;
}

HRESULT DocumentHost::ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) noexcept {
    return S_OK;
}

// S_OK blocks the key. The program's loop passes no such keys, but a loop inside the engine might.
HRESULT DocumentHost::TranslateAccelerator(LPMSG message, const GUID*, DWORD) noexcept {
    if (!message || message->message != WM_KEYDOWN) return S_FALSE;
    const PageKey meaning = ClassifyPageKey(static_cast<int>(message->wParam), ShiftState());
    return meaning == PageKey::Blocked || meaning == PageKey::Zooms ? S_OK : S_FALSE;
}

HRESULT DocumentHost::GetOptionKeyPath(LPOLESTR* path, DWORD) noexcept {
    if (path) *path = nullptr;
    return S_FALSE; // use the user's default colours, fonts and sizes
}

HRESULT DocumentHost::GetDropTarget(IDropTarget*, IDropTarget** ours) noexcept {
    if (!ours) return E_POINTER;
    *ours = nullptr;
    if (!owner_) return E_NOTIMPL;
    if (!dropTarget_) dropTarget_ = Adopt<IDropTarget>(new (std::nothrow) PageDropTarget(*owner_));
    if (!dropTarget_) return E_OUTOFMEMORY;
    *ours = dropTarget_.Get();
    (*ours)->AddRef();
    return S_OK;
}

HRESULT DocumentHost::GetExternal(IDispatch** external) noexcept {
    if (external) *external = nullptr;
    return S_FALSE;
}

HRESULT DocumentHost::TranslateUrl(DWORD, LPWSTR, LPWSTR* translated) noexcept {
    if (translated) *translated = nullptr;
    return S_FALSE;
}

HRESULT DocumentHost::FilterDataObject(IDataObject*, IDataObject** filtered) noexcept {
    if (filtered) *filtered = nullptr;
    return S_FALSE;
}

HRESULT DocumentHost::ShowMessage(HWND, LPOLESTR, LPOLESTR, DWORD, LPOLESTR, DWORD,
                                  LRESULT* answer) noexcept {
    if (answer) *answer = IDCANCEL;
    return S_OK; // as if it had been shown and cancelled
}

HRESULT DocumentHost::ShowHelp(HWND, LPOLESTR, UINT, DWORD, POINT, IDispatch*) noexcept {
    return S_OK;
}
