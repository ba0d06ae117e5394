// The one way from a native event into a handler of the form.
#pragma once

#include "platform/windows/base/win32.h"

#include <exception>
#include <utility>

// Calls `handler` if there is one. Nothing that it throws goes further, because a window procedure
// is called through the system: it is told to a debugger and the event counts as done.
template <typename Handler, typename... Arguments>
void CallHandler(const Handler& handler, Arguments&&... arguments) noexcept {
    try {
        if (handler) handler(std::forward<Arguments>(arguments)...);
    } catch (const std::exception& error) {
        OutputDebugStringA(error.what());
    } catch (...) {
        OutputDebugStringA("A handler failed.");
    }
}
