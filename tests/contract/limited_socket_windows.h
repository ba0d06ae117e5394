// Sockets for the tests' own servers, none of whose calls waits for good. In a call that blocks, a
// client that has given up holds the server's thread, and the test that joins it, for ever: not
// even closing the socket wakes it everywhere.
#pragma once

#include "platform/windows/base/win32.h"

#include <winsock2.h>
#include <ws2tcpip.h>

#include <algorithm>
#include <atomic>
#include <string>
#include <utility>

// Of this computer; 0 takes any port.
inline sockaddr_in LoopbackPlace(int port) {
    sockaddr_in place = {};
    place.sin_family = AF_INET;
    place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    place.sin_port = htons(static_cast<u_short>(port));
    return place;
}

struct Winsock {
    Winsock() {
        WSADATA details = {};
        WSAStartup(MAKEWORD(2, 2), &details);
    }
    ~Winsock() { WSACleanup(); }
    Winsock(const Winsock&) = delete;
    Winsock& operator=(const Winsock&) = delete;
};

constexpr int serverCallLimit = 30'000; // milliseconds; longer than any fetch waits

// What a call may wait for: its limit, and the end of the test.
struct CallLimits {
    const std::atomic<bool>& ending;
    int milliseconds = serverCallLimit;
};

class LimitedSocket {
  public:
    LimitedSocket(SOCKET socket, CallLimits limits) : socket_(socket), limits_(limits) {
        u_long nonBlocking = 1;
        ioctlsocket(socket_, static_cast<long>(FIONBIO), &nonBlocking);
    }
    ~LimitedSocket() { Close(); }
    LimitedSocket(const LimitedSocket&) = delete;
    LimitedSocket& operator=(const LimitedSocket&) = delete;

    bool IsOpen() const { return socket_ != INVALID_SOCKET; }
    SOCKET Handle() const { return socket_; }
    void Close() {
        if (!IsOpen()) return;
        shutdown(socket_, SD_SEND);
        closesocket(std::exchange(socket_, INVALID_SOCKET));
    }

    // INVALID_SOCKET when nobody comes.
    SOCKET Accept() const {
        return WaitToRead() ? accept(socket_, nullptr, nullptr) : INVALID_SOCKET;
    }
    bool Connect(int port) const {
        const sockaddr_in place = LoopbackPlace(port);
        if (connect(socket_, reinterpret_cast<const sockaddr*>(&place), sizeof place) == 0)
            return true;
        if (WSAGetLastError() != WSAEWOULDBLOCK || !WaitToWrite()) return false;
        int error = 0, size = sizeof error;
        getsockopt(socket_, SOL_SOCKET, SO_ERROR, reinterpret_cast<char*>(&error), &size);
        return error == 0;
    }
    // False when the other side does not take all of it.
    bool Send(const std::string& bytes) const {
        for (std::size_t sent = 0; sent < bytes.size();) {
            if (!WaitToWrite()) return false;
            const int taken =
                send(socket_, bytes.data() + sent, static_cast<int>(bytes.size() - sent), 0);
            if (taken > 0)
                sent += static_cast<std::size_t>(taken);
            else if (WSAGetLastError() != WSAEWOULDBLOCK)
                return false;
        }
        return true;
    }
    // False when the other side has hung up, or says nothing more.
    bool Receive(char& unit) const { return WaitToRead() && recv(socket_, &unit, 1, 0) > 0; }

  private:
    bool WaitToRead() const { return Wait(true); }
    bool WaitToWrite() const { return Wait(false); }
    bool Wait(bool toRead) const {
        constexpr int step = 20; // milliseconds after which the end of the test is noticed
        for (int left = limits_.milliseconds; left > 0 && !limits_.ending; left -= step) {
            fd_set sockets = {1, {socket_}};
            timeval time = {0, std::min(left, step) * 1000};
            const int ready =
                select(0, toRead ? &sockets : nullptr, toRead ? nullptr : &sockets, nullptr, &time);
            if (ready != 0) return ready > 0;
        }
        return false;
    }

    SOCKET socket_;
    CallLimits limits_;
};
