// A server of this machine that only tells whether anybody came, and hangs up: who asks it in vain
// does not wait for an answer. Include it before what includes windows.h, which winsock2.h has to
// come before.
#pragma once

#include "tests/contract/loopback_server_windows.h"

class Listener {
  public:
    std::string Address() const {
        return "http://127.0.0.1:" + std::to_string(server_.Port()) + "/";
    }
    bool WasContacted() const { return server_.Connections() > 0; }

  private:
    LoopbackServer server_{[](const LoopbackConnection&, const std::string&) {}};
};
