#include "platform/qt/window/window_activation.h"

#include <QByteArray>
#include <QGuiApplication>
#include <QWindow>

#if QT_CONFIG(xcb)
#include <xcb/xcb.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <optional>
#endif

namespace {

#if QT_CONFIG(xcb)

constexpr std::uint32_t sourceIsApplication = 1; // of _NET_ACTIVE_WINDOW

xcb_connection_t* Connection() {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

xcb_atom_t Atom(xcb_connection_t* connection, const QByteArray& name) {
    struct Free {
        void operator()(void* reply) const { std::free(reply); }
    };
    const auto cookie =
        xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.constData());
    const std::unique_ptr<xcb_intern_atom_reply_t, Free> reply(
        xcb_intern_atom_reply(connection, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

// When its user did what led to the start, in milliseconds of the X server: ids end in it.
std::optional<std::uint32_t> TimeOf(const QByteArray& startupId) {
    constexpr const char* mark = "_TIME";
    const qsizetype at = startupId.lastIndexOf(mark);
    if (at < 0) return std::nullopt;
    bool isNumber = false;
    const auto time = startupId.mid(at + qstrlen(mark)).toUInt(&isNumber);
    return isNumber ? std::optional<std::uint32_t>(time) : std::nullopt;
}

void Send(xcb_connection_t* connection, xcb_client_message_event_t event, std::uint32_t mask) {
    event.response_type = XCB_CLIENT_MESSAGE;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    xcb_send_event(connection, 0, root, mask, reinterpret_cast<const char*>(&event));
}

// Qt would give the time of the last event of this program, which is older than the click on a book
// elsewhere: a desktop that keeps programs from taking the keyboard would refuse.
void RequestAt(xcb_connection_t* connection, const QWindow& window, std::uint32_t time) {
    xcb_client_message_event_t event = {};
    event.format = 32;
    event.window = static_cast<xcb_window_t>(window.winId());
    event.type = Atom(connection, "_NET_ACTIVE_WINDOW");
    event.data.data32[0] = sourceIsApplication;
    event.data.data32[1] = time;
    Send(connection, event,
         XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
}

// Else the desktop shows that something is starting until it loses timeout: messages of 20 bytes
// to the root window, the last one with a NUL.
void EndStartup(xcb_connection_t* connection, const QWindow& window, const QByteArray& startupId) {
    QByteArray quoted = startupId;
    quoted.replace('\\', "\\\\").replace('"', "\\\"");
    const QByteArray text = "remove: ID=\"" + quoted + "\"";
    const xcb_atom_t next = Atom(connection, "_NET_STARTUP_INFO");
    xcb_client_message_event_t event = {};
    event.format = 8;
    event.window = static_cast<xcb_window_t>(window.winId());
    event.type = Atom(connection, "_NET_STARTUP_INFO_BEGIN");
    constexpr qsizetype size = sizeof event.data.data8;
    for (qsizetype at = 0; at <= text.size(); at += size) { // its NUL is sent, too
        const qsizetype count = std::min(size, text.size() + 1 - at);
        std::copy_n(text.constData() + at, count, event.data.data8);
        std::fill(event.data.data8 + count, event.data.data8 + size, std::uint8_t{0});
        Send(connection, event, XCB_EVENT_MASK_PROPERTY_CHANGE);
        event.type = next;
    }
}

// Whether X11 has taken the request.
bool ActivateOnX11(const QWindow& window, const QByteArray& startupId) {
    xcb_connection_t* connection = Connection();
    if (!connection || startupId.isEmpty()) return false;
    const std::optional<std::uint32_t> time = TimeOf(startupId);
    if (time) RequestAt(connection, window, *time);
    EndStartup(connection, window, startupId);
    xcb_flush(connection);
    return time.has_value();
}

#else

bool ActivateOnX11(const QWindow&, const QByteArray&) {
    return false;
}

#endif

} // namespace

void ActivateWindow(QWindow& window, const QByteArray& token) {
    if (ActivateOnX11(window, token)) return;
    // From where Qt's part for Wayland takes it, and removes it.
    if (!token.isEmpty() && QGuiApplication::platformName().startsWith(QLatin1String("wayland")))
        qputenv("XDG_ACTIVATION_TOKEN", token);
    window.requestActivate();
}
