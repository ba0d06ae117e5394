// In-place activation of the browser control in a window without a frame.
#pragma once

#include "platform/windows/base/com_object.h"

#include <oleidl.h>

// The part of the client site for in-place activation.
class InPlaceSite : public IOleInPlaceSite {
  public:
    HRESULT STDMETHODCALLTYPE GetWindow(HWND*) noexcept override;
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) noexcept override;
    HRESULT STDMETHODCALLTYPE CanInPlaceActivate() noexcept override;
    HRESULT STDMETHODCALLTYPE OnInPlaceActivate() noexcept override;
    HRESULT STDMETHODCALLTYPE OnUIActivate() noexcept override;
    HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame**, IOleInPlaceUIWindow**, LPRECT,
                                               LPRECT, LPOLEINPLACEFRAMEINFO) noexcept override;
    HRESULT STDMETHODCALLTYPE Scroll(SIZE) noexcept override;
    HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL) noexcept override;
    HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() noexcept override;
    HRESULT STDMETHODCALLTYPE DiscardUndoState() noexcept override;
    HRESULT STDMETHODCALLTYPE DeactivateAndUndo() noexcept override;
    HRESULT STDMETHODCALLTYPE OnPosRectChange(LPCRECT) noexcept override;

  protected:
    ~InPlaceSite() = default;
    void SetWindow(HWND window) { window_ = window; }

  private:
    HWND window_ = nullptr;
};

// A frame without menu or toolbar space.
class InPlaceFrame final : public ComObject<IOleInPlaceFrame> {
  public:
    explicit InPlaceFrame(HWND window) : window_(window) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) noexcept override;
    HRESULT STDMETHODCALLTYPE GetWindow(HWND*) noexcept override;
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) noexcept override;
    HRESULT STDMETHODCALLTYPE GetBorder(LPRECT) noexcept override;
    HRESULT STDMETHODCALLTYPE RequestBorderSpace(LPCBORDERWIDTHS) noexcept override;
    HRESULT STDMETHODCALLTYPE SetBorderSpace(LPCBORDERWIDTHS) noexcept override;
    HRESULT STDMETHODCALLTYPE SetActiveObject(IOleInPlaceActiveObject*,
                                              LPCOLESTR) noexcept override;
    HRESULT STDMETHODCALLTYPE InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) noexcept override;
    HRESULT STDMETHODCALLTYPE SetMenu(HMENU, HOLEMENU, HWND) noexcept override;
    HRESULT STDMETHODCALLTYPE RemoveMenus(HMENU) noexcept override;
    HRESULT STDMETHODCALLTYPE SetStatusText(LPCOLESTR) noexcept override;
    HRESULT STDMETHODCALLTYPE EnableModeless(BOOL) noexcept override;
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG, WORD) noexcept override;

  private:
    HWND window_;
};
