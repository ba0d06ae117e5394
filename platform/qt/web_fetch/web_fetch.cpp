#include "platform/qt/web_fetch/web_fetch.h"

#include "product.h"

#include <QEventLoop>
#include <QHostAddress>
#include <QNetworkAccessManager>
#include <QNetworkProxy>
#include <QNetworkReply>
#include <QTimer>

#include <memory>

namespace {
constexpr int maxRedirections = 5;

bool IsThisComputer(const QUrl& url) {
    return url.host() == QLatin1String("localhost") || QHostAddress(url.host()).isLoopback();
}

bool IsAllowed(const QUrl& url) {
    if (!url.isValid() || url.host().isEmpty() || !url.userInfo().isEmpty()) return false;
    return url.scheme() == QLatin1String("https") ||
           (url.scheme() == QLatin1String("http") && IsThisComputer(url));
}

bool IsRedirectAllowed(const QUrl& from, const QUrl& to) {
    return IsAllowed(to) &&
           (from.scheme() != QLatin1String("https") || to.scheme() == from.scheme());
}

// The system's proxies without stored credentials.
class Proxies final : public QNetworkProxyFactory {
  public:
    QList<QNetworkProxy> queryProxy(const QNetworkProxyQuery& query) override {
        if (IsThisComputer(query.url())) return {QNetworkProxy::NoProxy};
        QList<QNetworkProxy> proxies = systemProxyForQuery(query);
        for (QNetworkProxy& proxy : proxies) {
            proxy.setUser({});
            proxy.setPassword({});
        }
        return proxies;
    }
};

QNetworkRequest RequestFor(const QUrl& address) {
    QNetworkRequest request(address);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::UserVerifiedRedirectPolicy);
    request.setMaximumRedirectsAllowed(maxRedirections);
    for (const auto attribute :
         {QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::CookieSaveControlAttribute,
          QNetworkRequest::AuthenticationReuseAttribute})
        request.setAttribute(attribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute,
                         QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    // Instead of the user's language, and without compression.
    request.setRawHeader("Accept-Language", "*");
    request.setRawHeader("Accept-Encoding", "identity");
    request.setRawHeader("User-Agent", PRODUCT_TITLE);
    return request;
}

void VerifyRedirects(QNetworkReply& reply) {
    QObject::connect(&reply, &QNetworkReply::redirected, &reply,
                     [&reply, at = reply.url()](const QUrl& to) mutable {
                         if (!IsRedirectAllowed(at, to)) return reply.abort();
                         at = to;
                         emit reply.redirectAllowed();
                     });
}

FetchAnswer AnswerOf(QNetworkReply& reply) {
    constexpr int found = 200;
    const int status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (reply.error() != QNetworkReply::NoError || status != found) return {};
    const QByteArray bytes = reply.read(fetchLimit + 1);
    if (bytes.size() > qsizetype(fetchLimit)) return {};
    return {FetchStatus::Ok, bytes.toStdString()};
}
} // namespace

FetchAnswer FetchFromWeb(const QUrl& address, int timeout) {
    if (!IsAllowed(address)) return {};
    QNetworkAccessManager manager;
    manager.setProxyFactory(new Proxies); // the manager takes ownership
    const std::unique_ptr<QNetworkReply> reply(manager.get(RequestFor(address)));
    reply->setReadBufferSize(fetchLimit + 1);
    VerifyRedirects(*reply);
    QObject::connect(reply.get(), &QNetworkReply::readyRead, reply.get(), [&reply] {
        if (reply->bytesAvailable() > qint64(fetchLimit)) reply->abort();
    });
    QTimer::singleShot(timeout, reply.get(), &QNetworkReply::abort);
    QEventLoop untilFinished;
    QObject::connect(reply.get(), &QNetworkReply::finished, &untilFinished, &QEventLoop::quit);
    if (!reply->isFinished()) untilFinished.exec();
    // QCoreApplication::quit() ends this loop, too.
    return reply->isFinished() ? AnswerOf(*reply) : FetchAnswer{FetchStatus::Abandoned, {}};
}
