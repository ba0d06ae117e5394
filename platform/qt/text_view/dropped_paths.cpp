#include "platform/qt/text_view/dropped_paths.h"

#include "common/utf.h"

#include <QList>

#include <optional>
#include <string>

namespace {
// The path of a file: address on this machine, as bytes. Not by QUrl: it would lose bytes that are
// no UTF-8.
std::optional<std::string> LocalPath(const QByteArray& address) {
    constexpr QByteArrayView scheme = "file:";
    if (address.left(scheme.size()).toLower() != scheme) return std::nullopt;
    QByteArray path = address.mid(scheme.size());
    if (path.startsWith("//")) {
        const qsizetype slash = path.indexOf('/', 2);
        if (slash < 0) return std::nullopt;
        const QByteArray host = path.mid(2, slash - 2).toLower();
        if (!host.isEmpty() && host != "localhost") return std::nullopt;
        path = path.mid(slash);
    }
    if (!path.startsWith('/')) return std::nullopt;
    return QByteArray::fromPercentEncoding(path).toStdString();
}
} // namespace

std::vector<std::u16string> DroppedPaths(const QByteArray& uriList) {
    std::vector<std::u16string> paths;
    for (const QByteArray& line : uriList.split('\n')) {
        const QByteArray address = line.trimmed();
        if (address.startsWith('#')) continue;
        if (const auto path = LocalPath(address)) paths.push_back(Utf8ToUtf16(*path, u'?'));
    }
    return paths;
}
