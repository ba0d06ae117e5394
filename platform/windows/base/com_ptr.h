// A counted reference to a COM interface.
#pragma once

#include "platform/windows/base/win32.h"

#include <ole2.h>

#include <utility>

template <typename Interface>
class ComPtr {
  public:
    ComPtr() = default;
    explicit ComPtr(Interface* shared) : pointer_(shared) { // counts one more
        if (pointer_) pointer_->AddRef();
    }
    ComPtr(const ComPtr& other) : ComPtr(other.pointer_) {}
    ComPtr(ComPtr&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
    ComPtr& operator=(ComPtr other) noexcept {
        std::swap(pointer_, other.pointer_);
        return *this;
    }
    ~ComPtr() {
        if (pointer_) pointer_->Release();
    }

    static ComPtr Adopt(Interface* counted) { // takes over the count that the caller has
        ComPtr result;
        result.pointer_ = counted;
        return result;
    }

    Interface* operator->() const { return pointer_; }
    Interface* Get() const { return pointer_; }
    explicit operator bool() const { return pointer_ != nullptr; }

    // Where a function puts a counted reference.
    Interface** Put() {
        *this = {};
        return &pointer_;
    }
    void** PutVoid() { return reinterpret_cast<void**>(Put()); }

  private:
    Interface* pointer_ = nullptr;
};

// Null where the object does not have the interface.
template <typename Wanted, typename Interface>
ComPtr<Wanted> Query(Interface* object) {
    ComPtr<Wanted> result;
    if (object && FAILED(object->QueryInterface(__uuidof(Wanted), result.PutVoid()))) return {};
    return result;
}

template <typename Wanted, typename Interface>
ComPtr<Wanted> Query(const ComPtr<Interface>& object) {
    return Query<Wanted>(object.Get());
}
