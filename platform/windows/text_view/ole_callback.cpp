#include "platform/windows/text_view/ole_callback.h"

#include <ole2.h>
#include <richedit.h>
#include <richole.h>

namespace {
// One for all controls, of no state: its reference count is of no use.
class PictureCallback : public IRichEditOleCallback {
  public:
    STDMETHODIMP QueryInterface(REFIID id, void** object) override {
        *object = nullptr;
        if (id != IID_IUnknown && id != IID_IRichEditOleCallback) return E_NOINTERFACE;
        *object = this;
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 1; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }

    // In memory: a picture of a text needs one to be shown.
    STDMETHODIMP GetNewStorage(IStorage** storage) override {
        *storage = nullptr;
        ILockBytes* memory = nullptr;
        const HRESULT made = CreateILockBytesOnHGlobal(nullptr, TRUE, &memory);
        if (FAILED(made)) return made;
        const HRESULT opened = StgCreateDocfileOnILockBytes(
            memory, STGM_SHARE_EXCLUSIVE | STGM_CREATE | STGM_READWRITE, 0, storage);
        memory->Release();
        return opened;
    }
    STDMETHODIMP QueryInsertObject(CLSID* kind, IStorage*, LONG) override {
        const bool picture = *kind == CLSID_NULL || *kind == CLSID_StaticMetafile ||
                             *kind == CLSID_StaticDib || *kind == CLSID_Picture_EnhMetafile;
        return picture ? S_OK : S_FALSE;
    }
    STDMETHODIMP QueryAcceptData(LPDATAOBJECT, CLIPFORMAT*, DWORD, BOOL, HGLOBAL) override {
        return E_FAIL;
    }
    STDMETHODIMP GetInPlaceContext(LPOLEINPLACEFRAME*, LPOLEINPLACEUIWINDOW*,
                                   LPOLEINPLACEFRAMEINFO) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP ShowContainerUI(BOOL) override { return S_OK; }
    STDMETHODIMP DeleteObject(LPOLEOBJECT) override { return S_OK; }
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return S_OK; }
    STDMETHODIMP GetClipboardData(CHARRANGE*, DWORD, LPDATAOBJECT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetDragDropEffect(BOOL, DWORD, LPDWORD effect) override {
        *effect = DROPEFFECT_NONE;
        return S_OK;
    }
    STDMETHODIMP GetContextMenu(WORD, LPOLEOBJECT, CHARRANGE*, HMENU*) override {
        return E_NOTIMPL;
    }
};
} // namespace

void AllowPicturesOnly(HWND richEdit) {
    static PictureCallback callback;
    SendMessageW(richEdit, EM_SETOLECALLBACK, 0,
                 reinterpret_cast<LPARAM>(static_cast<IRichEditOleCallback*>(&callback)));
}
