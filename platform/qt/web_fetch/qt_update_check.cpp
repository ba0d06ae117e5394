#include "platform/qt/web_fetch/qt_update_check.h"

#include "platform/qt/base/qt_text.h"

#include <QFile>
#include <QFileInfo>
#include <QLibrary>
#include <QRegularExpression>
#include <QSysInfo>

#include <algorithm>

namespace {

// Debian's name for a processor of Qt's; "" for one that no package is made for.
QString DebianArchitecture(const QString& processor) {
    if (processor == QLatin1String("x86_64")) return QStringLiteral("amd64");
    return processor == QLatin1String("arm64") ? processor : QString();
}

bool IsDebian(const QString& osRelease) {
    static const QRegularExpression ids(QStringLiteral("^ID(?:_LIKE)?=(.*)$"),
                                        QRegularExpression::MultilineOption);
    auto matches = ids.globalMatch(osRelease);
    while (matches.hasNext()) {
        QString names = matches.next().captured(1);
        if (names.remove(QLatin1Char('"'))
                .split(QLatin1Char(' '))
                .contains(QLatin1String("debian")))
            return true;
    }
    return false;
}

QString OsRelease() {
    for (const char* path : {"/etc/os-release", "/usr/lib/os-release"})
        if (QFile file(QString::fromLatin1(path)); file.open(QIODevice::ReadOnly))
            return QString::fromUtf8(file.read(64 * 1024));
    return {};
}

} // namespace

std::vector<std::u16string> SystemPackages(const QString& osRelease, const QString& processor,
                                           bool htmlModule) {
    const std::u16string ending = u"_*_" + FromQt(DebianArchitecture(processor)) + u".deb";
    if (!IsDebian(osRelease) || ending == u"_*_.deb") return {u""};
    std::vector<std::u16string> packages = {u"norvaset" + ending};
    if (htmlModule) packages.push_back(u"norvaset-html" + ending);
    return packages;
}

std::vector<std::u16string> QtUpdateCheck::Packages() const {
    const bool htmlModule = std::ranges::any_of(folders_, [](const QString& folder) {
        return QFileInfo::exists(folder + QStringLiteral("/libnorvaset-html.so"));
    });
    return SystemPackages(OsRelease(), QSysInfo::buildCpuArchitecture(), htmlModule);
}

FetchAnswer QtUpdateCheck::Fetch(const std::u16string& address) {
    using Function = void (*)(const QString&, FetchAnswer&);
    FetchAnswer answer;
    for (const QString& folder : folders_) {
        const QString path = folder + QStringLiteral("/norvaset-web.so");
        if (!QFileInfo::exists(path)) continue;
        const auto fetch = reinterpret_cast<Function>(QLibrary::resolve(path, "NorvasetFetch"));
        if (!fetch) continue;
        fetch(ToQt(address), answer);
        break;
    }
    return answer;
}
