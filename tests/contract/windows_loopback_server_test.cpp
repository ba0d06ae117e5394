// The tests' own server, and clients that give up: neither its calls nor the test's end wait for
// them.
#include "loopback_server_windows.h"

#include <doctest/doctest.h>

namespace {

const std::string piece(1 << 20, 'x'); // a few of these fill what the system holds back
const std::string request = "GET /f HTTP/1.1\r\n\r\n";

// Of a client that says this and then neither reads nor hangs up.
class IdleClient {
  public:
    IdleClient(const LoopbackServer& server, const std::string& words)
        : socket_(socket(AF_INET, SOCK_STREAM, 0), {never_}) {
        REQUIRE(socket_.Connect(server.Port()));
        REQUIRE(socket_.Send(words));
    }

  private:
    std::atomic<bool> never_ = false;
    LimitedSocket socket_;
};

bool Becomes(const std::function<bool()>& condition) {
    const ULONGLONG end = GetTickCount64() + 10'000;
    while (!condition() && GetTickCount64() < end)
        Sleep(10);
    return condition();
}

} // namespace

TEST_CASE("windows loopback server: its end does not wait for a client that takes nothing") {
    std::atomic<int> pieces = 0;
    LoopbackServer server([&](const LoopbackConnection& connection, const std::string&) {
        while (connection.Send(piece))
            ++pieces;
    });
    const IdleClient client(server, request);
    int before = -1;
    CHECK(Becomes([&] { // it waits in a call
        const bool waits = before == pieces && !server.Requests().empty();
        before = pieces;
        Sleep(200);
        return waits;
    }));
    server.Close();
    CHECK(server.Requests().size() == 1);
}

TEST_CASE("windows loopback server: a call ends by itself") {
    constexpr int shortLimit = 200; // milliseconds
    std::atomic<int> answered = 0;
    LoopbackServer server(
        [&](const LoopbackConnection& connection, const std::string&) {
            while (connection.Send(piece)) {
            }
            ++answered;
        },
        shortLimit);
    const IdleClient silent(server, ""), half(server, "GET /"), deaf(server, request),
        deafToo(server, request);
    CHECK(Becomes([&] { return answered == 3; }));
    CHECK(server.Connections() == 4);
}
