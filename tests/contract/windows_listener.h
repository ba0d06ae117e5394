// A server of this machine that only tells whether anybody came. Include it after winsock2.h, which
// has to come before windows.h.
#pragma once

#include <winsock2.h>

#include <string>

class Listener {
  public:
    Listener() {
        WSADATA data;
        WSAStartup(MAKEWORD(2, 2), &data);
        socket_ = socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        bind(socket_, reinterpret_cast<sockaddr*>(&address), sizeof address);
        listen(socket_, 5);
        int size = sizeof address;
        getsockname(socket_, reinterpret_cast<sockaddr*>(&address), &size);
        port_ = ntohs(address.sin_port);
        u_long nonBlocking = 1;
        ioctlsocket(socket_, static_cast<long>(FIONBIO), &nonBlocking);
    }
    ~Listener() {
        closesocket(socket_);
        WSACleanup();
    }
    std::string Address() const { return "http://127.0.0.1:" + std::to_string(port_) + "/"; }
    bool WasAsked() const {
        const SOCKET caller = accept(socket_, nullptr, nullptr);
        if (caller == INVALID_SOCKET) return false;
        closesocket(caller);
        return true;
    }

  private:
    SOCKET socket_;
    int port_;
};
