// A web server on this computer for one test, as bad as the test wants it.
#pragma once

#include <QTcpServer>
#include <QTcpSocket>

#include <functional>
#include <vector>

class LoopbackServer {
  public:
    using Answer = std::function<void(QTcpSocket&, const QByteArray& path)>;

    explicit LoopbackServer(Answer answer, QTcpServer* server = new QTcpServer)
        : answer_(std::move(answer)), server_(server) {
        server_->listen(QHostAddress::LocalHost);
        QObject::connect(server_.get(), &QTcpServer::pendingConnectionAvailable,
                         [this] { TakeConnections(); });
    }

    QString Address(const char* scheme = "http") const {
        return QStringLiteral("%1://127.0.0.1:%2").arg(scheme).arg(server_->serverPort());
    }
    void Close() { server_->close(); }

    std::vector<QByteArray> requests; // the heads of all, in order

  private:
    void TakeConnections() {
        while (QTcpSocket* socket = server_->nextPendingConnection()) {
            QObject::connect(socket, &QTcpSocket::readyRead, socket,
                             [this, socket, head = QByteArray()]() mutable {
                                 head += socket->readAll();
                                 if (!head.contains("\r\n\r\n")) return;
                                 requests.push_back(head);
                                 answer_(*socket, head.split(' ').value(1));
                                 head.clear();
                             });
        }
    }

    Answer answer_;
    std::unique_ptr<QTcpServer> server_;
};

// A whole answer, after which the connection ends.
inline void SendAnswer(QTcpSocket& socket, const QByteArray& status, const QByteArray& body,
                       const QByteArray& fields = {}) {
    socket.write("HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(body.size()) +
                 "\r\n" + fields + "Connection: close\r\n\r\n" + body);
    socket.disconnectFromHost();
}

inline void SendRedirection(QTcpSocket& socket, const QByteArray& to) {
    SendAnswer(socket, "302 Found", "", "Location: " + to + "\r\nSet-Cookie: a=b\r\n");
}
