// The one way from a native event into a handler of the form.
#pragma once

#include <QtGlobal>

#include <exception>
#include <utility>

// Calls `handler` if there is one. Nothing that it throws goes further, because Qt's event loop
// cannot carry an exception: it is reported on stderr and the event counts as done.
template <typename Handler, typename... Arguments>
void CallHandler(const Handler& handler, Arguments&&... arguments) noexcept {
    try {
        if (handler) handler(std::forward<Arguments>(arguments)...);
    } catch (const std::exception& error) {
        qCritical("A handler failed: %s", error.what());
    } catch (...) {
        qCritical("A handler failed.");
    }
}
