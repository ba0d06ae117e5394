// The page's drop target; the engine's own would navigate to a dropped file.
#pragma once

#include "platform/windows/base/com_object.h"
#include "platform/windows/html_view/browser/browser_owner.h"

class PageDropTarget final : public ComObject<IDropTarget> {
  public:
    explicit PageDropTarget(BrowserOwner& owner) : owner_(&owner) {}
    void Disconnect() { owner_ = nullptr; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) noexcept override;
    HRESULT STDMETHODCALLTYPE DragEnter(IDataObject*, DWORD, POINTL, DWORD*) noexcept override;
    HRESULT STDMETHODCALLTYPE DragOver(DWORD, POINTL, DWORD*) noexcept override;
    HRESULT STDMETHODCALLTYPE DragLeave() noexcept override;
    HRESULT STDMETHODCALLTYPE Drop(IDataObject*, DWORD, POINTL, DWORD*) noexcept override;

  private:
    HRESULT Show(DWORD* effect) const;

    BrowserOwner* owner_;
    bool hasFiles_ = false;
};
