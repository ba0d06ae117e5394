// Implementing COM objects.
#pragma once

#include "platform/windows/base/com_ptr.h"

#include <oaidl.h>

// Reference-counted, starting at one. The count is interlocked: the engine also uses threads of its
// own.
template <typename... Interfaces>
class ComObject : public Interfaces... {
  public:
    ComObject() = default;
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    ULONG STDMETHODCALLTYPE AddRef() noexcept override {
        return static_cast<ULONG>(InterlockedIncrement(&count_));
    }
    ULONG STDMETHODCALLTYPE Release() noexcept override {
        const LONG left = InterlockedDecrement(&count_);
        if (left == 0) delete this;
        return static_cast<ULONG>(left);
    }

  protected:
    virtual ~ComObject() = default;

  private:
    LONG count_ = 1;
};

// Implements QueryInterface for the named interfaces; the first one serves as IUnknown.
template <typename First, typename... Rest, typename Object>
HRESULT FindInterface(Object* object, REFIID id, void** found) noexcept {
    if (!found) return E_POINTER;
    *found = nullptr;
    if (id == __uuidof(IUnknown) || id == __uuidof(First)) *found = static_cast<First*>(object);
    ((id == __uuidof(Rest) ? void(*found = static_cast<Rest*>(object)) : void()), ...);
    if (!*found) return E_NOINTERFACE;
    object->AddRef();
    return S_OK;
}

// An IDispatch without type information and names: callers know the DISPIDs.
class InvokeOnlyDispatch : public IDispatch {
  public:
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override {
        if (!count) return E_POINTER;
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID,
                                            DISPID*) noexcept override {
        return DISP_E_UNKNOWNNAME;
    }

  protected:
    ~InvokeOnlyDispatch() = default;
};
