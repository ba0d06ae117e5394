#include "platform/qt/system/recent_documents.h"

#include "product.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QSettings>
#include <QStandardPaths>

#include <memory>

#include <glib.h>

namespace {

constexpr qint64 maxListSize = 16 << 20; // bytes; with a thousand documents it has half of one
constexpr int maxWait = 5'000;           // milliseconds

struct GlibDeleter {
    void operator()(GBookmarkFile* list) const { g_bookmark_file_free(list); }
    void operator()(GDateTime* time) const { g_date_time_unref(time); }
    void operator()(char* text) const { g_free(text); }
};
template <typename Type>
using GlibPtr = std::unique_ptr<Type, GlibDeleter>;

// False without the portal, on a desktop that has no such switch, and while it allows it.
bool IsForbidden(const QDBusPendingReply<QDBusVariant>& answer) {
    if (!answer.isValid()) return false;
    QVariant value = answer.value().variant();
    while (value.canConvert<QDBusVariant>()) // the method wraps its value twice
        value = value.value<QDBusVariant>().variant();
    return value.typeId() == QMetaType::Bool && !value.toBool();
}

QDBusMessage AskAboutPrivacy() {
    QDBusMessage question = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.portal.Desktop"),
        QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("Read"));
    question << QStringLiteral("org.gnome.desktop.privacy")
             << QStringLiteral("remember-recent-files");
    return question;
}

void AddUnlessForbidden(const QString& path) {
    using Paths = QStandardPaths;
    if (!KeepsRecentDocuments(Paths::writableLocation(Paths::GenericConfigLocation))) return;
    const QMimeType type = QMimeDatabase().mimeTypeForFile(path, QMimeDatabase::MatchExtension);
    AddToRecentList(Paths::writableLocation(Paths::GenericDataLocation) +
                        QStringLiteral("/recently-used.xbel"),
                    path, type.isDefault() ? QStringLiteral("text/plain") : type.name());
}

// An empty list for a file that is not there; null for one that cannot be read.
GlibPtr<GBookmarkFile> Load(QFile& file) {
    GlibPtr<GBookmarkFile> list(g_bookmark_file_new());
    if (!file.exists()) return list;
    if (file.size() > maxListSize || !file.open(QIODevice::ReadOnly)) return nullptr;
    const QByteArray bytes = file.readAll();
    const bool read =
        g_bookmark_file_load_from_data(list.get(), bytes.constData(), gsize(bytes.size()), nullptr);
    return read ? std::move(list) : nullptr;
}

} // namespace

void RecentDocuments::Add(const QString& path) {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return AddUnlessForbidden(path);
    auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(AskAboutPrivacy(), maxWait), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [path, answer] {
        if (!IsForbidden(*answer)) AddUnlessForbidden(path);
        answer->deleteLater();
    });
}

bool KeepsRecentDocuments(const QString& configFolder) {
    const QSettings kde(configFolder + QStringLiteral("/kdeglobals"), QSettings::IniFormat);
    if (!kde.value(QStringLiteral("RecentDocuments/UseRecent"), true).toBool()) return false;
    for (const char* toolkit : {"/gtk-3.0", "/gtk-4.0"}) {
        const QSettings gtk(configFolder + QLatin1String(toolkit) + QStringLiteral("/settings.ini"),
                            QSettings::IniFormat);
        if (!gtk.value(QStringLiteral("Settings/gtk-recent-files-enabled"), true).toBool())
            return false;
    }
    return true;
}

bool AddToRecentList(const QString& list, const QString& path, const QString& mediaType) {
    QFile file(list);
    const GlibPtr<GBookmarkFile> documents = Load(file);
    const GlibPtr<char> address(
        g_filename_to_uri(QFile::encodeName(path).constData(), nullptr, nullptr));
    if (!documents || !address) return false;
    const GlibPtr<GDateTime> now(g_date_time_new_now_utc());
    g_bookmark_file_set_mime_type(documents.get(), address.get(), mediaType.toUtf8().constData());
    g_bookmark_file_add_application(documents.get(), address.get(), PRODUCT_TITLE,
                                    PRODUCT_TITLE " %u");
    g_bookmark_file_set_visited_date_time(documents.get(), address.get(), now.get());
    gsize length = 0;
    const GlibPtr<char> bytes(g_bookmark_file_to_data(documents.get(), &length, nullptr));
    constexpr int onlyUser = 0600; // as the list tells what its user reads
    return bytes && QDir().mkpath(QFileInfo(list).path()) &&
           g_file_set_contents_full(QFile::encodeName(list).constData(), bytes.get(),
                                    gssize(length), G_FILE_SET_CONTENTS_CONSISTENT, onlyUser,
                                    nullptr);
}
