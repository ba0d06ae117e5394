// The one way from a native event into what handles it.
#pragma once

#include <exception>
#include <utility>

// Defined by each back end: says where a developer looks that a handler has failed.
void ReportHandlerFailure(const char* what) noexcept;

// No exception leaves it, because neither Qt's event loop nor a window procedure can propagate one:
// it is reported, and the event counts as handled.
template <typename Call>
void CallGuarded(Call call) noexcept {
    try {
        call();
    } catch (const std::exception& error) {
        ReportHandlerFailure(error.what());
    } catch (...) {
        ReportHandlerFailure("an exception of an unknown type");
    }
}

// Calls `handler` if there is one.
template <typename Handler, typename... Arguments>
void CallHandler(const Handler& handler, Arguments&&... arguments) noexcept {
    CallGuarded([&] {
        if (handler) handler(std::forward<Arguments>(arguments)...);
    });
}
