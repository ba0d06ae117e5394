// What the COM objects of our own have in common.
#pragma once

#include "platform/windows/base/com_ptr.h"

// Counts the references to an object that is born with one, and ends it with the last. The engine
// may count on threads of its own.
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

// Answers QueryInterface with those that are named; the first one serves as the identity.
template <typename First, typename... Rest, typename Object>
HRESULT AnswerQuery(Object* object, REFIID id, void** found) noexcept {
    if (!found) return E_POINTER;
    *found = nullptr;
    if (id == __uuidof(IUnknown) || id == __uuidof(First)) *found = static_cast<First*>(object);
    ((id == __uuidof(Rest) ? void(*found = static_cast<Rest*>(object)) : void()), ...);
    if (!*found) return E_NOINTERFACE;
    object->AddRef();
    return S_OK;
}
