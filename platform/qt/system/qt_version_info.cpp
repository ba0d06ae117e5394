#include "platform/qt/system/qt_version_info.h"

#include "common/text.h"
#include "platform/qt/qt_text.h"
#include "product.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QStandardPaths>

namespace {

constexpr qint64 maxEntrySize = 1 << 20; // bytes; real entries have a few thousand

std::u16string Text(const char* utf8) {
    return FromQt(QString::fromUtf8(utf8));
}

std::string_view NextLine(std::string_view& text) {
    const std::size_t end = text.find('\n');
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return Trim(line);
}

// 0: not a name; 1: unlocalized; 2: the language of `locale`; 3: its language and country.
int MatchRank(std::string_view key, std::string_view locale) {
    if (key == "Name") return 1;
    if (!key.starts_with("Name[") || !key.ends_with("]")) return 0;
    const std::string_view language = key.substr(5, key.size() - 6);
    if (language == locale) return 3;
    return language == locale.substr(0, locale.find('_')) ? 2 : 0;
}

} // namespace

std::string DesktopEntryName(std::string_view file, std::string_view locale) {
    std::string name;
    int bestRank = 0;
    bool inEntry = false;
    while (!file.empty()) {
        const std::string_view line = NextLine(file);
        if (line.starts_with("[")) {
            if (inEntry) break; // later groups describe additional actions
            inEntry = line == "[Desktop Entry]";
            continue;
        }
        const std::size_t equals = line.find('=');
        if (!inEntry || equals == std::string_view::npos) continue;
        if (const int rank = MatchRank(Trim(line.substr(0, equals)), locale); rank > bestRank) {
            bestRank = rank;
            name = Trim(line.substr(equals + 1));
        }
    }
    return name;
}

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
    const QByteArray bytes = file.read(maxEntrySize);
    const QByteArray locale = QLocale::system().name().toUtf8();
    return FromQt(QString::fromStdString(DesktopEntryName(
        {bytes.data(), static_cast<std::size_t>(bytes.size())}, locale.toStdString())));
}
