#include "platform/windows/html_view/browser/in_place_site.h"

#include <new>

HRESULT InPlaceSite::GetWindow(HWND* window) noexcept {
    if (!window) return E_POINTER;
    *window = window_;
    return S_OK;
}

HRESULT InPlaceSite::ContextSensitiveHelp(BOOL) noexcept {
    return E_NOTIMPL;
}

HRESULT InPlaceSite::CanInPlaceActivate() noexcept {
    return S_OK;
}

HRESULT InPlaceSite::OnInPlaceActivate() noexcept {
    return S_OK;
}

HRESULT InPlaceSite::OnUIActivate() noexcept {
    return S_OK;
}

HRESULT InPlaceSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                      LPRECT place, LPRECT clip,
                                      LPOLEINPLACEFRAMEINFO info) noexcept {
    if (!frame || !document || !place || !clip || !info) return E_POINTER;
    *document = nullptr;
    *frame = new (std::nothrow) InPlaceFrame(window_);
    if (!*frame) return E_OUTOFMEMORY;
    GetClientRect(window_, place);
    *clip = *place;
    info->fMDIApp = FALSE;
    info->hwndFrame = window_;
    info->haccel = nullptr;
    info->cAccelEntries = 0;
    return S_OK;
}

HRESULT InPlaceSite::Scroll(SIZE) noexcept {
    return E_NOTIMPL;
}

HRESULT InPlaceSite::OnUIDeactivate(BOOL) noexcept {
    return S_OK;
}

HRESULT InPlaceSite::OnInPlaceDeactivate() noexcept {
    return S_OK;
}

HRESULT InPlaceSite::DiscardUndoState() noexcept {
    return E_NOTIMPL;
}

HRESULT InPlaceSite::DeactivateAndUndo() noexcept {
    return E_NOTIMPL;
}

HRESULT InPlaceSite::OnPosRectChange(LPCRECT) noexcept {
    return E_NOTIMPL; // the control always fills the window
}

HRESULT InPlaceFrame::QueryInterface(REFIID id, void** found) noexcept {
    if (id == __uuidof(IOleWindow) || id == __uuidof(IOleInPlaceUIWindow))
        return FindInterface<IOleInPlaceFrame>(this, __uuidof(IOleInPlaceFrame), found);
    return FindInterface<IOleInPlaceFrame>(this, id, found);
}

HRESULT InPlaceFrame::GetWindow(HWND* window) noexcept {
    if (!window) return E_POINTER;
    *window = window_;
    return S_OK;
}

HRESULT InPlaceFrame::ContextSensitiveHelp(BOOL) noexcept {
    return E_NOTIMPL;
}

HRESULT InPlaceFrame::GetBorder(LPRECT) noexcept {
    return INPLACE_E_NOTOOLSPACE;
}

HRESULT InPlaceFrame::RequestBorderSpace(LPCBORDERWIDTHS) noexcept {
    return INPLACE_E_NOTOOLSPACE;
}

HRESULT InPlaceFrame::SetBorderSpace(LPCBORDERWIDTHS) noexcept {
    return S_OK;
}

HRESULT InPlaceFrame::SetActiveObject(IOleInPlaceActiveObject*, LPCOLESTR) noexcept {
    return S_OK;
}

HRESULT InPlaceFrame::InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) noexcept {
    return E_NOTIMPL;
}

HRESULT InPlaceFrame::SetMenu(HMENU, HOLEMENU, HWND) noexcept {
    return S_OK;
}

HRESULT InPlaceFrame::RemoveMenus(HMENU) noexcept {
    return E_NOTIMPL;
}

HRESULT InPlaceFrame::SetStatusText(LPCOLESTR) noexcept {
    return S_OK;
}

HRESULT InPlaceFrame::EnableModeless(BOOL) noexcept {
    return S_OK;
}

HRESULT InPlaceFrame::TranslateAccelerator(LPMSG, WORD) noexcept {
    return E_NOTIMPL;
}
