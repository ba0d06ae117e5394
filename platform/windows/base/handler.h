// Calling a handler of the form from a native event.
#pragma once

#include "platform/windows/base/win32.h"

#include <exception>
#include <utility>

// Calls `handler` if there is one. No exception may pass through the system's frames below a window
// procedure, so it is reported to the debugger and the event counts as handled.
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
