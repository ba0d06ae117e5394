#include "platform/qt/html_view/engine/file_address.h"

#include <QByteArray>

QUrl FileAddress(const std::string& path) {
    return QUrl::fromEncoded("file://" + QByteArray::fromStdString(path).toPercentEncoding("/"));
}

std::optional<std::string> LocalPathOf(const QUrl& address) {
    const QString host = address.host();
    const bool here = host.isEmpty() || host == QLatin1String("localhost");
    if (address.scheme() != QLatin1String("file") || !here) return std::nullopt;
    const QByteArray path = address.path(QUrl::FullyEncoded).toLatin1();
    return QByteArray::fromPercentEncoding(path).toStdString();
}
