#include "platform/qt/web_fetch/qt_update_check.h"

#include "platform/qt/qt_text.h"

#include <QFileInfo>
#include <QLibrary>

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
