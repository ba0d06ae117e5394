// Fetching from a local server that misbehaves in all ways.
#include "platform/qt/web_fetch/web_fetch.h"
#include "tests/contract/loopback_server.h"

#include <doctest/doctest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QSslCertificate>
#include <QSslKey>
#include <QSslServer>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTimer>

namespace {
const QByteArray file = "{\"version\":\"1.2.3\"}\n";
constexpr int shortTime = 300; // milliseconds

LoopbackServer::Answer Always(const QByteArray& status, const QByteArray& body,
                              const QByteArray& fields = {}) {
    return [=](QTcpSocket& socket, const QByteArray&) { SendAnswer(socket, status, body, fields); };
}

LoopbackServer::Answer RedirectsTo(const QByteArray& target) {
    return [target](QTcpSocket& socket, const QByteArray& path) {
        if (path == "/end")
            SendAnswer(socket, "200 OK", file);
        else
            SendRedirection(socket, target);
    };
}

bool Fails(const QUrl& address, int timeLimit = fetchTime) {
    const FetchAnswer answer = FetchFromWeb(address, timeLimit);
    return answer.status == FetchStatus::Failed && answer.bytes.empty();
}

bool Fails(LoopbackServer::Answer answer, int timeLimit = fetchTime) {
    LoopbackServer server(std::move(answer));
    return Fails(QUrl(server.Address() + "/f"), timeLimit);
}

// A self-signed certificate for 127.0.0.1.
struct SelfSigned {
    SelfSigned() {
        const QString key = folder.filePath("key.pem"), certificate = folder.filePath("cert.pem");
        QProcess openssl;
        openssl.start("openssl",
                      {"req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2", "-subj",
                       "/CN=127.0.0.1", "-addext", "subjectAltName=IP:127.0.0.1", "-keyout", key,
                       "-out", certificate});
        openssl.waitForFinished();
        QFile keyFile(key), certificateFile(certificate);
        if (!keyFile.open(QFile::ReadOnly) || !certificateFile.open(QFile::ReadOnly)) return;
        configuration = QSslConfiguration::defaultConfiguration();
        configuration.setPrivateKey(QSslKey(&keyFile, QSsl::Rsa));
        configuration.setLocalCertificate(QSslCertificate(&certificateFile));
    }
    QTcpServer* Server() const {
        auto* server = new QSslServer;
        server->setSslConfiguration(configuration);
        return server;
    }
    QTemporaryDir folder;
    QSslConfiguration configuration;
};

// Trusts the certificate within a scope.
struct Trust {
    explicit Trust(const QSslCertificate& certificate) {
        QSslConfiguration trusting = before;
        trusting.addCaCertificate(certificate);
        QSslConfiguration::setDefaultConfiguration(trusting);
    }
    ~Trust() { QSslConfiguration::setDefaultConfiguration(before); }
    const QSslConfiguration before = QSslConfiguration::defaultConfiguration();
};
} // namespace

TEST_CASE("web fetch: a file unchanged, requested without information about the user") {
    LoopbackServer server(Always("200 OK", file, "Set-Cookie: a=b\r\n"));
    const FetchAnswer answer = FetchFromWeb(QUrl(server.Address() + "/f"));
    CHECK(answer.status == FetchStatus::Ok);
    CHECK(answer.bytes == file.toStdString());
    REQUIRE(server.requests.size() == 1);
    const QByteArray request = server.requests[0].toLower();
    CHECK(request.startsWith("get /f http/1.1\r\n"));
    CHECK(request.contains("\r\naccept-language: *\r\n"));
    CHECK(request.contains("\r\nuser-agent: norvaset\r\n"));
    for (const char* field : {"cookie:", "authorization:", "referer:", "if-modified-since:"})
        CHECK_FALSE(request.contains(field));
    CHECK(FetchFromWeb(QUrl(server.Address() + "/f")).status == FetchStatus::Ok);
    CHECK(server.requests.size() == 2); // no cookie was sent back
    CHECK(server.requests[1] == server.requests[0]);
}

TEST_CASE("web fetch: only https, and http from this computer") {
    for (const char* address :
         {"http://norvaset.example/f", "http://192.0.2.1/f", "file:///etc/hostname", "ftp://a/f",
          "data:text/plain,x", "qrc:/icons/norvaset-16.png", "http:///f", "/etc/hostname", "",
          "https://", "https://a:b@127.0.0.1/f", "http://127.0.0.1.example/f"}) {
        QElapsedTimer time;
        time.start();
        CHECK_MESSAGE(Fails(QUrl(address)), address);
        CHECK(time.elapsed() < 1000); // no connection was attempted
    }
}

TEST_CASE("web fetch: anything but a whole answer of status 200 fails") {
    CHECK(Fails(Always("404 Not Found", file)));
    CHECK(Fails(Always("500 Oh", file)));
    CHECK(Fails(Always("204 No Content", "")));
    CHECK(Fails(Always("206 Partial Content", file)));
    CHECK(Fails(Always("401 Unauthorized", file, "WWW-Authenticate: Basic realm=\"a\"\r\n")));
    CHECK(Fails(Always("407 Proxy", file, "Proxy-Authenticate: Basic realm=\"a\"\r\n")));
    CHECK(Fails(Always("304 Not Modified", "")));
    const auto sends = [](const QByteArray& bytes) {
        return [bytes](QTcpSocket& socket, const QByteArray&) {
            socket.write(bytes);
            socket.disconnectFromHost();
        };
    };
    CHECK(Fails(sends("")));
    CHECK(Fails(sends("nonsense\r\n\r\n")));
    CHECK(Fails(sends(QByteArray(1000, '\0'))));
    CHECK(Fails(sends("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n" + file))); // truncated
    // Qt reports a broken chunk as the end of the data.
    LoopbackServer chunks(
        sends("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\nzz\r\n" + file));
    CHECK(FetchFromWeb(QUrl(chunks.Address())).bytes.empty());

    LoopbackServer refusing(Always("200 OK", file));
    refusing.Close();
    CHECK(Fails(QUrl(refusing.Address() + "/f")));
}

TEST_CASE("web fetch: at most 64 KB") {
    const QByteArray maxFile(fetchLimit, 'x');
    LoopbackServer server(Always("200 OK", maxFile));
    CHECK(FetchFromWeb(QUrl(server.Address())).bytes == maxFile.toStdString());
    CHECK(Fails(Always("200 OK", maxFile + 'x')));
    CHECK(Fails(Always("200 OK", QByteArray(10 << 20, 'x'))));
    // Endless data.
    CHECK(Fails([&maxFile](QTcpSocket& socket, const QByteArray&) {
        QObject::connect(&socket, &QTcpSocket::bytesWritten, &socket, [&socket, &maxFile] {
            if (socket.bytesToWrite() < maxFile.size()) socket.write(maxFile);
        });
        socket.write("HTTP/1.1 200 OK\r\n\r\n");
    }));
}

TEST_CASE("web fetch: one timeout for the whole transfer") {
    const auto silent = [](QTcpSocket&, const QByteArray&) {};
    const auto half = [](QTcpSocket& socket, const QByteArray&) {
        socket.write("HTTP/1.1 200 OK\r\nContent-Length: 20\r\n\r\n{");
    };
    // Each byte arrives in time, but the whole does not.
    const auto slow = [](QTcpSocket& socket, const QByteArray&) {
        socket.write("HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\n");
        auto* timer = new QTimer(&socket);
        timer->callOnTimeout([&socket] { socket.write("x"); });
        timer->start(20);
    };
    for (const LoopbackServer::Answer& answer : {LoopbackServer::Answer(silent), {half}, {slow}}) {
        QElapsedTimer time;
        time.start();
        CHECK(Fails(answer, shortTime));
        CHECK(time.elapsed() >= shortTime - 20);
        CHECK(time.elapsed() < fetchTime / 2);
    }
}

TEST_CASE("web fetch: a redirection is followed by the rules for the first address only") {
    LoopbackServer server(RedirectsTo("/end"));
    CHECK(FetchFromWeb(QUrl(server.Address() + "/f")).bytes == file.toStdString());
    REQUIRE(server.requests.size() == 2);
    CHECK_FALSE(server.requests[1].toLower().contains("cookie:"));
    CHECK_FALSE(server.requests[1].toLower().contains("referer:"));
    for (const char* target :
         {"file:///etc/hostname", "ftp://127.0.0.1/f", "data:text/plain,x", "qrc:/x", "http:///",
          "http://192.0.2.1/f", "http://norvaset.example/f", "http://a:b@127.0.0.1/end",
          "javascript:1"})
        CHECK_MESSAGE(Fails(RedirectsTo(target)), target);
    CHECK(Fails(Always("302 Found", file))); // without Location
}

TEST_CASE("web fetch: a circle of redirections ends") {
    QElapsedTimer time;
    time.start();
    CHECK(Fails(RedirectsTo("/again")));
    CHECK(time.elapsed() < fetchTime / 2);
}

TEST_CASE("web fetch: https with a certificate that can be trusted, and no other") {
    const SelfSigned own;
    if (own.configuration.isNull()) {
        MESSAGE("skipped: no openssl to make a certificate with");
        return;
    }
    LoopbackServer server(Always("200 OK", file), own.Server());
    const QUrl address(server.Address("https") + "/f");
    CHECK(Fails(address));
    CHECK(server.requests.empty());
    const Trust trust(own.configuration.localCertificate());
    CHECK(FetchFromWeb(address).bytes == file.toStdString());
    CHECK(server.requests.size() == 1);
    QUrl otherName = address;
    otherName.setHost("localhost"); // the certificate is for another name
    CHECK(Fails(otherName));
}

TEST_CASE("web fetch: never from https to http") {
    const SelfSigned own;
    if (own.configuration.isNull()) {
        MESSAGE("skipped: no openssl to make a certificate with");
        return;
    }
    const Trust trust(own.configuration.localCertificate());
    LoopbackServer plain(Always("200 OK", file));
    LoopbackServer secure(RedirectsTo(plain.Address().toLatin1()), own.Server());
    CHECK(Fails(QUrl(secure.Address("https") + "/f")));
    CHECK(secure.requests.size() == 1);
    CHECK(plain.requests.empty());
    LoopbackServer upwards(RedirectsTo(secure.Address("https").toLatin1() + "/end"));
    CHECK(FetchFromWeb(QUrl(upwards.Address() + "/f")).bytes == file.toStdString());
}

TEST_CASE("web fetch: the event loop runs meanwhile, and quitting ends it") {
    int ticks = 0;
    QTimer timer;
    timer.callOnTimeout([&ticks] { ++ticks; });
    timer.start(10);
    CHECK(Fails([](QTcpSocket&, const QByteArray&) {}, shortTime));
    CHECK(ticks > 3);

    LoopbackServer silent([](QTcpSocket&, const QByteArray&) { QCoreApplication::quit(); });
    FetchAnswer answer;
    QTimer::singleShot(0, [&] { answer = FetchFromWeb(QUrl(silent.Address())); });
    QCoreApplication::exec();
    CHECK(answer.status == FetchStatus::Abandoned);
}
