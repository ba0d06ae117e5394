#include "platform/qt/html_view/engine/page_url.h"

#include "platform/qt/base/file_url.h"

#include <QWebEngineUrlScheme>

#include <utility>

namespace {
QUrl WithScheme(QUrl url, const QString& from, const QString& to) {
    if (url.scheme() == from) url.setScheme(to);
    return url;
}
} // namespace

void RegisterPageScheme() {
    QWebEngineUrlScheme scheme(pageScheme);
    scheme.setSyntax(QWebEngineUrlScheme::Syntax::Path);
    // As file: is, and with access to files, which the guard restricts.
    scheme.setFlags(QWebEngineUrlScheme::LocalScheme | QWebEngineUrlScheme::LocalAccessAllowed);
    QWebEngineUrlScheme::registerScheme(scheme);
}

QUrl WithPageScheme(QUrl file) {
    return WithScheme(std::move(file), QStringLiteral("file"), QLatin1String(pageScheme));
}

QUrl WithFileScheme(QUrl page) {
    return WithScheme(std::move(page), QLatin1String(pageScheme), QStringLiteral("file"));
}

std::optional<std::string> LocalPathOf(const QUrl& url) {
    return LocalPathOf(WithFileScheme(url.adjusted(QUrl::RemoveQuery | QUrl::RemoveFragment))
                           .toEncoded()
                           .toStdString());
}
