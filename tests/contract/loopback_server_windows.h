// A web server on this computer for one test, as bad as the test wants it. It runs on a thread of
// its own, because a fetch waits in the test's.
#pragma once

#include "platform/windows/win32.h"

#include <winsock2.h>
#include <ws2tcpip.h>

#include <atomic>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

// A connection while it is answered.
class LoopbackConnection {
  public:
    LoopbackConnection(SOCKET socket, const std::atomic<bool>& ending)
        : socket_(socket), ending_(ending) {}

    // False when nobody listens any more, or the test ends.
    bool Send(const std::string& bytes) const {
        return !ending_ && send(socket_, bytes.data(), static_cast<int>(bytes.size()), 0) > 0;
    }
    // Until the other side hangs up or the test ends.
    void WaitUntilClosed() const {
        char byte = 0;
        while (!ending_ && recv(socket_, &byte, 1, 0) > 0) {
        }
    }
    // As far as it has the looks of one.
    std::string Head() const {
        std::string head;
        char byte = 0;
        while (head.find("\r\n\r\n") == head.npos && (head.empty() || head[0] == 'G') &&
               recv(socket_, &byte, 1, 0) > 0)
            head += byte;
        return head;
    }

  private:
    SOCKET socket_;
    const std::atomic<bool>& ending_;
};

class LoopbackServer {
  public:
    using Answer = std::function<void(const LoopbackConnection&, const std::string& path)>;

    explicit LoopbackServer(Answer answer) : answer_(std::move(answer)) {
        WSADATA details = {};
        WSAStartup(MAKEWORD(2, 2), &details);
        listener_ = socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in place = {};
        place.sin_family = AF_INET;
        place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        bind(listener_, reinterpret_cast<sockaddr*>(&place), sizeof place);
        int size = sizeof place;
        getsockname(listener_, reinterpret_cast<sockaddr*>(&place), &size);
        port_ = ntohs(place.sin_port);
        listen(listener_, SOMAXCONN);
        thread_ = std::thread([this] { Serve(); });
    }
    ~LoopbackServer() {
        Close();
        WSACleanup();
    }
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
        {
            const std::lock_guard guard(lock_);
            if (open_ != INVALID_SOCKET) shutdown(open_, SD_BOTH);
        }
        shutdown(listener_, SD_BOTH);
        closesocket(listener_);
        thread_.join();
    }
    std::vector<std::string> Requests() const { // the heads of all, in order
        const std::lock_guard guard(lock_);
        return requests_;
    }

  private:
    void SetOpen(SOCKET socket) {
        const std::lock_guard guard(lock_);
        open_ = socket;
    }
    void Serve() {
        for (;;) {
            const SOCKET socket = accept(listener_, nullptr, nullptr);
            if (socket == INVALID_SOCKET || ending_) return;
            SetOpen(socket);
            const LoopbackConnection connection(socket, ending_);
            const std::string head = connection.Head();
            if (!head.empty()) {
                {
                    const std::lock_guard guard(lock_);
                    requests_.push_back(head);
                }
                const std::size_t path = head.find(' ') + 1;
                answer_(connection, head.substr(path, head.find(' ', path) - path));
            }
            SetOpen(INVALID_SOCKET);
            shutdown(socket, SD_SEND);
            closesocket(socket);
        }
    }

    Answer answer_;
    std::atomic<bool> ending_ = false;
    mutable std::mutex lock_; // of what the thread shares
    std::vector<std::string> requests_;
    SOCKET open_ = INVALID_SOCKET;
    SOCKET listener_;
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
