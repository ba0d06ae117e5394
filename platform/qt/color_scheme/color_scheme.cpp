#include "platform/qt/color_scheme/color_scheme.h"

#include "platform/qt/color_scheme/dark_palette.h"
#include "platform/qt/color_scheme/title_bars.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QEvent>
#include <QPlatformSurfaceEvent>
#include <QWindow>

namespace {
// As the documentation of xdg-desktop-portal has it.
const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString object = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settings = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString colorScheme = QStringLiteral("color-scheme");
constexpr uint preferDark = 1;

// The method Read wraps its value twice.
uint SchemeOf(QVariant value) {
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value.toUInt();
}
} // namespace

ColorScheme::ColorScheme() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return;
    qApp->installEventFilter(this);
    bus.connect(service, object, settings, QStringLiteral("SettingChanged"), this,
                SLOT(OnSettingChanged(QDBusMessage)));
    Ask();
}

// Waits for nothing: the portal may have to be started first.
void ColorScheme::Ask() {
    QDBusMessage question =
        QDBusMessage::createMethodCall(service, object, settings, QStringLiteral("Read"));
    question << appearance << colorScheme;
    auto* answer =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        if (reply.isValid()) Apply(SchemeOf(reply.value().variant()) == preferDark);
        answer->deleteLater();
    });
}

void ColorScheme::OnSettingChanged(const QDBusMessage& changed) {
    const QVariantList values = changed.arguments(); // group, key and value
    if (values.size() == 3 && values[0] == appearance && values[1] == colorScheme)
        Apply(SchemeOf(values[2]) == preferDark);
}

// A style or a desktop's plug-in that is dark already stays as it is.
void ColorScheme::Apply(bool dark) {
    if (dark == dark_ || (dark && IsDark(QApplication::palette()))) return;
    dark_ = dark;
    QApplication::setPalette(dark ? DarkPalette() : QPalette());
    for (QWindow* window : QGuiApplication::topLevelWindows())
        if (window->handle()) SetDarkTitleBar(*window, dark);
}

bool ColorScheme::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::PlatformSurface && dark_) {
        const auto* surface = static_cast<QPlatformSurfaceEvent*>(event);
        auto* window = qobject_cast<QWindow*>(watched);
        const bool isCreated = surface->surfaceEventType() == QPlatformSurfaceEvent::SurfaceCreated;
        if (window && isCreated && window->isTopLevel()) SetDarkTitleBar(*window, true);
    }
    return QObject::eventFilter(watched, event);
}
