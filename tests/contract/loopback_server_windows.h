// A web server on this computer for one test, as bad as the test wants it. It runs on a thread of
// its own, because a fetch waits in the test's; none of its calls waits longer than its limit, and
// all end with the test.
#pragma once

#include "limited_socket_windows.h"

#include <doctest/doctest.h>

#include <atomic>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

// A connection while it is answered.
class LoopbackConnection {
  public:
    explicit LoopbackConnection(const LimitedSocket& socket) : socket_(socket) {}

    // False when nobody listens any more, or the test ends.
    bool Send(const std::string& bytes) const { return socket_.Send(bytes); }
    // Until the other side hangs up or the test ends.
    void WaitUntilClosed() const {
        char unit = 0;
        while (socket_.Receive(unit)) {
        }
    }
    // As far as it has the looks of one.
    std::string Head() const {
        std::string head;
        char unit = 0;
        while (head.find("\r\n\r\n") == head.npos && (head.empty() || head[0] == 'G') &&
               socket_.Receive(unit))
            head += unit;
        return head;
    }

  private:
    const LimitedSocket& socket_;
};

class LoopbackServer {
  public:
    using Answer = std::function<void(const LoopbackConnection&, const std::string& path)>;

    explicit LoopbackServer(Answer answer, int callLimit = serverCallLimit)
        : answer_(std::move(answer)), limits_{ending_, callLimit},
          listener_(socket(AF_INET, SOCK_STREAM, 0), limits_) {
        sockaddr_in place = LoopbackPlace(0);
        REQUIRE(bind(listener_.Handle(), reinterpret_cast<sockaddr*>(&place), sizeof place) == 0);
        int size = sizeof place;
        getsockname(listener_.Handle(), reinterpret_cast<sockaddr*>(&place), &size);
        port_ = ntohs(place.sin_port);
        listen(listener_.Handle(), SOMAXCONN);
        thread_ = std::thread([this] { Serve(); });
    }
    ~LoopbackServer() { Close(); }
    LoopbackServer(const LoopbackServer&) = delete;
    LoopbackServer& operator=(const LoopbackServer&) = delete;

    std::u16string Address(const std::u16string& host = u"127.0.0.1") const {
        const std::string port = std::to_string(port_);
        return u"http://" + host + u":" + std::u16string(port.begin(), port.end());
    }
    int Port() const { return port_; }
    // Refuses from now on.
    void Close() {
        if (ending_.exchange(true)) return;
        thread_.join();
        listener_.Close();
    }
    int Connections() const { return connections_; }
    std::vector<std::string> Requests() const { // the heads of all, in order
        const std::lock_guard guard(lock_);
        return requests_;
    }

  private:
    void Serve() {
        while (!ending_) {
            const LimitedSocket client(listener_.Accept(), limits_);
            if (client.IsOpen()) AnswerTo(LoopbackConnection(client));
        }
    }
    void AnswerTo(const LoopbackConnection& connection) {
        ++connections_;
        const std::string head = connection.Head();
        if (head.empty()) return;
        {
            const std::lock_guard guard(lock_);
            requests_.push_back(head);
        }
        const std::size_t path = head.find(' ') + 1;
        answer_(connection, head.substr(path, head.find(' ', path) - path));
    }

    Winsock winsock_;
    Answer answer_;
    std::atomic<bool> ending_ = false;
    std::atomic<int> connections_ = 0;
    mutable std::mutex lock_; // of what the thread shares
    std::vector<std::string> requests_;
    CallLimits limits_;
    LimitedSocket listener_;
    int port_ = 0;
    std::thread thread_;
};

// A whole answer.
inline std::string AnswerBytes(const std::string& status, const std::string& body,
                               const std::string& fields = {}) {
    return "HTTP/1.1 " + status + "\r\nContent-Length: " + std::to_string(body.size()) + "\r\n" +
           fields + "Connection: close\r\n\r\n" + body;
}

inline std::string RedirectionBytes(const std::string& to) {
    return AnswerBytes("302 Found", "", "Location: " + to + "\r\nSet-Cookie: a=b\r\n");
}
