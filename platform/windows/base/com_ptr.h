// Counted references to COM interfaces.
#pragma once

#include "platform/windows/base/win32.h"

#include <wrl/client.h>

using Microsoft::WRL::ComPtr;

// Takes over the reference that the caller has. Not by ComPtr::Attach, which in MinGW-w64 counts
// one more.
template <typename Interface>
ComPtr<Interface> Adopt(Interface* counted) {
    ComPtr<Interface> result;
    *result.GetAddressOf() = counted;
    return result;
}

// Null where the object, which may be null, does not have the interface. ComPtr::As asks a null
// pointer, too.
template <typename Wanted, typename Interface>
ComPtr<Wanted> Query(Interface* object) {
    ComPtr<Wanted> result;
    if (!object || FAILED(object->QueryInterface(IID_PPV_ARGS(&result)))) return {};
    return result;
}

template <typename Wanted, typename Interface>
ComPtr<Wanted> Query(const ComPtr<Interface>& object) {
    return Query<Wanted>(object.Get());
}
