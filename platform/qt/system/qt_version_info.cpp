#include "platform/qt/system/qt_version_info.h"

#include "platform/qt/qt_text.h"
#include "platform/qt/system/desktop_entry.h"
#include "product.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QStandardPaths>

namespace {

constexpr qint64 entryLimit = 1 << 20; // bytes; real entries have a few thousand

std::u16string Text(const char* utf8) {
    return FromQt(QString::fromUtf8(utf8));
}

} // namespace

ProgramVersion QtVersionInfo::OwnVersion() const {
    ProgramVersion version;
    version.company = Text(PRODUCT_COMPANY);
    version.title = Text(PRODUCT_TITLE);
    version.description = Text(PRODUCT_DESCRIPTION);
    version.comments = Text(PRODUCT_COMMENTS);
    version.copyright = Text(PRODUCT_COPYRIGHT);
    version.trademarks = Text(PRODUCT_TRADEMARKS);
    version.major = PRODUCT_VERSION_MAJOR;
    version.minor = PRODUCT_VERSION_MINOR;
    version.revision = PRODUCT_VERSION_REVISION;
    return version;
}

std::u16string QtVersionInfo::FileDescription(const std::u16string& program) const {
    const QString name = QFileInfo(ToQt(program)).fileName();
    if (name.isEmpty()) return {};
    const QString entry =
        QStandardPaths::locate(QStandardPaths::ApplicationsLocation, name + ".desktop");
    if (entry.isEmpty()) return {}; // most programs have none
    QFile file(entry);
    if (!file.open(QIODevice::ReadOnly)) return {};
    const QByteArray bytes = file.read(entryLimit);
    const QByteArray locale = QLocale::system().name().toUtf8();
    return FromQt(QString::fromStdString(DesktopEntryName(
        {bytes.data(), static_cast<std::size_t>(bytes.size())}, locale.toStdString())));
}
