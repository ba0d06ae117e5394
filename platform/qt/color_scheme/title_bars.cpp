#include "platform/qt/color_scheme/title_bars.h"

#include <QGuiApplication>
#include <QWindow>

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <string_view>

namespace {
struct Freed {
    void operator()(void* reply) const { std::free(reply); }
};

xcb_atom_t AtomOf(xcb_connection_t* connection, std::string_view name) {
    const auto asked =
        xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const std::unique_ptr<xcb_intern_atom_reply_t, Freed> reply(
        xcb_intern_atom_reply(connection, asked, nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}
} // namespace

void SetDarkTitleBar(QWindow& window, bool dark) {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11) return;
    xcb_connection_t* connection = x11->connection();
    const xcb_atom_t property = AtomOf(connection, "_GTK_THEME_VARIANT");
    const xcb_atom_t text = AtomOf(connection, "UTF8_STRING");
    if (property == XCB_ATOM_NONE || text == XCB_ATOM_NONE) return;
    const std::string_view variant = dark ? "dark" : "light";
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE,
                        static_cast<xcb_window_t>(window.winId()), property, text, 8,
                        static_cast<std::uint32_t>(variant.size()), variant.data());
    xcb_flush(connection);
}
