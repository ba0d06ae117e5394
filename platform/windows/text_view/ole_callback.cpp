#include "platform/windows/text_view/ole_callback.h"

#include <ole2.h>
#include <richedit.h>
#include <richole.h>

namespace {
// IID_IRichEditOleCallback, which not every uuid library has.
constexpr IID callbackId = {0x00020D03, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

// Stateless and shared by all controls, so not reference-counted.
class PictureCallback : public IRichEditOleCallback {
  public:
    STDMETHODIMP QueryInterface(REFIID id, void** object) noexcept override {
        *object = nullptr;
        if (id != IID_IUnknown && id != callbackId) return E_NOINTERFACE;
        *object = this;
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return 1; }
    STDMETHODIMP_(ULONG) Release() noexcept override { return 1; }

    // In memory; a picture is not shown without a storage.
    STDMETHODIMP GetNewStorage(IStorage** storage) noexcept override {
        *storage = nullptr;
        ILockBytes* memory = nullptr;
        const HRESULT made = CreateILockBytesOnHGlobal(nullptr, TRUE, &memory);
        if (FAILED(made)) return made;
        const HRESULT opened = StgCreateDocfileOnILockBytes(
            memory, STGM_SHARE_EXCLUSIVE | STGM_CREATE | STGM_READWRITE, 0, storage);
        memory->Release();
        return opened;
    }
    STDMETHODIMP QueryInsertObject(CLSID* kind, IStorage*, LONG) noexcept override {
        const bool picture = *kind == CLSID_NULL || *kind == CLSID_StaticMetafile ||
                             *kind == CLSID_StaticDib || *kind == CLSID_Picture_EnhMetafile;
        return picture ? S_OK : S_FALSE;
    }
    STDMETHODIMP QueryAcceptData(LPDATAOBJECT, CLIPFORMAT*, DWORD, BOOL,
                                 HGLOBAL) noexcept override {
        return E_FAIL;
    }
    STDMETHODIMP GetInPlaceContext(LPOLEINPLACEFRAME*, LPOLEINPLACEUIWINDOW*,
                                   LPOLEINPLACEFRAMEINFO) noexcept override {
        return E_NOTIMPL;
    }
    STDMETHODIMP ShowContainerUI(BOOL) noexcept override { return S_OK; }
    STDMETHODIMP DeleteObject(LPOLEOBJECT) noexcept override { return S_OK; }
    STDMETHODIMP ContextSensitiveHelp(BOOL) noexcept override { return S_OK; }
    STDMETHODIMP GetClipboardData(CHARRANGE*, DWORD, LPDATAOBJECT*) noexcept override {
        return E_NOTIMPL;
    }
    STDMETHODIMP GetDragDropEffect(BOOL, DWORD, LPDWORD effect) noexcept override {
        *effect = DROPEFFECT_NONE;
        return S_OK;
    }
    STDMETHODIMP GetContextMenu(WORD, LPOLEOBJECT, CHARRANGE*, HMENU*) noexcept override {
        return E_NOTIMPL;
    }
};
} // namespace

void AllowPicturesOnly(HWND richEdit) {
    static PictureCallback callback;
    SendMessageW(richEdit, EM_SETOLECALLBACK, 0,
                 reinterpret_cast<LPARAM>(static_cast<IRichEditOleCallback*>(&callback)));
}
