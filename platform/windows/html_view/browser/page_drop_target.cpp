#include "platform/windows/html_view/browser/page_drop_target.h"

#include "platform/windows/window/win_drops.h"

#include <shellapi.h>

namespace {

FORMATETC FileList() {
    return {CF_HDROP, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
}

std::vector<std::u16string> PathsIn(IDataObject* data) {
    std::vector<std::u16string> paths;
    FORMATETC format = FileList();
    STGMEDIUM medium = {};
    if (!data || FAILED(data->GetData(&format, &medium))) return paths;
    paths = DroppedFiles(static_cast<HDROP>(medium.hGlobal));
    ReleaseStgMedium(&medium);
    return paths;
}

} // namespace

HRESULT PageDropTarget::QueryInterface(REFIID id, void** found) noexcept {
    return FindInterface<IDropTarget>(this, id, found);
}

HRESULT PageDropTarget::DragEnter(IDataObject* data, DWORD, POINTL, DWORD* effect) noexcept {
    FORMATETC format = FileList();
    hasFiles_ = owner_ && data && data->QueryGetData(&format) == S_OK;
    return Show(effect);
}

HRESULT PageDropTarget::DragOver(DWORD, POINTL, DWORD* effect) noexcept {
    return Show(effect);
}

HRESULT PageDropTarget::DragLeave() noexcept {
    hasFiles_ = false;
    return S_OK;
}

HRESULT PageDropTarget::Drop(IDataObject* data, DWORD, POINTL, DWORD* effect) noexcept {
    const HRESULT shown = Show(effect);
    const std::vector<std::u16string> paths = PathsIn(data);
    if (owner_ && !paths.empty()) owner_->OnFilesDropped(paths);
    hasFiles_ = false;
    return shown;
}

// Never DROPEFFECT_MOVE: the source would delete the file.
HRESULT PageDropTarget::Show(DWORD* effect) const {
    if (!effect) return E_POINTER;
    *effect = hasFiles_ ? *effect & (DROPEFFECT_COPY | DROPEFFECT_LINK) : DROPEFFECT_NONE;
    if (*effect & DROPEFFECT_COPY) *effect = DROPEFFECT_COPY;
    return S_OK;
}
