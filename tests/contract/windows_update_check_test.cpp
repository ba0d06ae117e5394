// Fetching from the web, against a server on this computer that does all that servers should not.
#include "platform/windows/web/win_update_check.h"

#include "loopback_server_windows.h"
#include "platform/windows/base/text.h"
#include "platform/windows/base/win_native_window.h"
#include "platform/windows/web/web_target.h"
#include "tls_server_windows.h"

#include <doctest/doctest.h>

namespace {

const std::string file = "{\"version\":\"1.2.3\"}\n";
constexpr int shortTime = 1000; // milliseconds; within it a busy computer has begun to answer
constexpr int minute = 60'000;

FetchAnswer Fetch(const std::u16string& address, int timeLimit = fetchTime) {
    return WinUpdateCheck(nullptr, timeLimit).Fetch(address);
}

LoopbackServer::Answer Sends(const std::string& bytes) {
    return [bytes](const LoopbackConnection& connection, const std::string&) {
        connection.Send(bytes);
    };
}

LoopbackServer::Answer Always(const std::string& status, const std::string& body,
                              const std::string& fields = {}) {
    return Sends(AnswerBytes(status, body, fields));
}

LoopbackServer::Answer RedirectsTo(const std::string& target) {
    return [target](const LoopbackConnection& connection, const std::string& path) {
        connection.Send(path == "/a/end" ? AnswerBytes("200 OK", file) : RedirectionBytes(target));
    };
}

void Silent(const LoopbackConnection& connection, const std::string&) {
    connection.WaitUntilClosed();
}

bool Fails(const std::u16string& address, int timeLimit = fetchTime) {
    const FetchAnswer answer = Fetch(address, timeLimit);
    return answer.status == FetchStatus::Failed && answer.bytes.empty();
}

bool Fails(LoopbackServer::Answer answer, int timeLimit = fetchTime) {
    const LoopbackServer server(std::move(answer));
    const bool failed = Fails(server.Address() + u"/a/f", timeLimit);
    CHECK_FALSE(server.Requests().empty());
    return failed;
}

std::string FetchedFrom(LoopbackServer::Answer answer) {
    const LoopbackServer server(std::move(answer));
    return Fetch(server.Address() + u"/a/f").bytes;
}

std::string Lower(std::string text) {
    CharLowerBuffA(text.data(), static_cast<DWORD>(text.size()));
    return text;
}

std::string Narrow(std::u16string_view ascii) {
    return std::string(ascii.begin(), ascii.end());
}

bool Holds(const std::string& text, const std::string& part) {
    return text.find(part) != text.npos;
}

} // namespace

TEST_CASE("windows update check: a file as it is, asked for without a word about the user") {
    const LoopbackServer server(Always("200 OK", file, "Set-Cookie: a=b\r\n"));
    const FetchAnswer answer = Fetch(server.Address() + u"/f?x#y");
    CHECK(answer.status == FetchStatus::Ok);
    CHECK(answer.bytes == file);
    REQUIRE(server.Requests().size() == 1);
    const std::string request = Lower(server.Requests()[0]);
    CHECK(request.starts_with("get /f?x http/1.1\r\n"));
    CHECK(Holds(request, "\r\naccept-language: *\r\n"));
    CHECK(Holds(request, "\r\naccept-encoding: identity\r\n"));
    CHECK(Holds(request, "\r\nuser-agent: norvaset\r\n"));
    for (const char* field : {"cookie:", "authorization:", "referer:", "if-modified-since:"})
        CHECK_FALSE(Holds(request, field));
    CHECK(Fetch(server.Address() + u"/f?x").status == FetchStatus::Ok);
    REQUIRE(server.Requests().size() == 2); // nothing was kept of the first
    CHECK(server.Requests()[1] == server.Requests()[0]);
    CHECK(Fetch(server.Address(u"LocalHost")).bytes == file);
}

TEST_CASE("windows update check: only https, and http from this computer") {
    for (const char16_t* address : {u"http://norvaset.example/f",
                                    u"http://192.0.2.1/f",
                                    u"file:///C:/windows/win.ini",
                                    u"ftp://a/f",
                                    u"data:text/plain,x",
                                    u"http:///f",
                                    u"C:\\windows\\win.ini",
                                    u"",
                                    u"https://",
                                    u"https://a:b@127.0.0.1/f",
                                    u"http://127.0.0.1.example/f",
                                    u"http://127.0.0.1\\@norvaset.example/",
                                    u"http://localhost.example/",
                                    u"http://a@localhost/",
                                    u"http:/localhost/",
                                    u"http://127.0.0.1:0/",
                                    u"http://127.0.0.1:65536/",
                                    u"http://127.0.0.1:8a/",
                                    u"http://127.0.0.1 /",
                                    u"http://[::2]/",
                                    u"http://[::1/",
                                    u"http://[::1]x/",
                                    u"http://127.1/"}) {
        const ULONGLONG start = GetTickCount64();
        CHECK_MESSAGE(Fails(address), Narrow(address));
        CHECK(GetTickCount64() - start < fetchTime); // it was not even tried
    }
}

TEST_CASE("windows update check: the parts of an address") {
    const auto target = ParseWebTarget(L"HTTPS://norvaset.example:8443/a/b?c=d#e");
    REQUIRE(target);
    CHECK(target->secure);
    CHECK_FALSE(target->isThisComputer);
    CHECK(target->host == L"norvaset.example");
    CHECK(target->port == 8443);
    CHECK(target->path == L"/a/b?c=d");
    CHECK(ParseWebTarget(L"https://a.example?b")->path == L"/?b");
    CHECK(ParseWebTarget(L"https://a.example#b")->path == L"/");
    CHECK(ParseWebTarget(L"https://a.example")->port == 443);
    CHECK(ParseWebTarget(L"http://127.9.8.7")->port == 80);
    CHECK(ParseWebTarget(L"http://[::1]:81")->isThisComputer);
    const auto leads = [&](const wchar_t* location) {
        const auto to = RedirectedTarget(*target, location);
        return to ? to->address : L"nowhere";
    };
    CHECK(leads(L"f") == L"https://norvaset.example:8443/a/f");
    CHECK(leads(L"/f") == L"https://norvaset.example:8443/f");
    CHECK(leads(L"//b.example/f") == L"https://b.example/f");
    CHECK(leads(L"http://127.0.0.1/f") == L"nowhere"); // from https
    CHECK(leads(L"file:///C:/f") == L"nowhere");
    CHECK(leads(L"") == L"nowhere");
}

TEST_CASE("windows update check: anything but a whole answer of status 200 fails") {
    CHECK(Fails(Always("404 Not Found", file)));
    CHECK(Fails(Always("500 Oh", file)));
    CHECK(Fails(Always("204 No Content", "")));
    CHECK(Fails(Always("206 Partial Content", file)));
    CHECK(Fails(Always("401 Unauthorized", file, "WWW-Authenticate: Basic realm=\"a\"\r\n")));
    CHECK(Fails(Always("401 Unauthorized", file, "WWW-Authenticate: NTLM\r\n")));
    CHECK(Fails(Always("407 Proxy", file, "Proxy-Authenticate: Basic realm=\"a\"\r\n")));
    CHECK(Fails(Always("304 Not Modified", "")));
    CHECK(Fails(Sends("")));
    CHECK(Fails(Sends("nonsense\r\n\r\n")));
    CHECK(Fails(Sends(std::string(1000, '\0'))));
    CHECK(Fails(Sends("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n" + file))); // cut off
    // Some systems take a broken chunk for the end.
    CHECK(FetchedFrom(Sends("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\nzz\r\n" + file))
              .empty());
}

TEST_CASE("windows update check: nobody answers, or not in the language asked for") {
    LoopbackServer server(Always("200 OK", file));
    const std::u16string address = server.Address();
    CHECK(Fails(u"https" + address.substr(4) + u"/f"));
    CHECK_FALSE(server.Requests()[0].starts_with("G")); // it did not even ask in the open
    server.Close();
    CHECK(Fails(address + u"/f"));
}

TEST_CASE("windows update check: https with a certificate that nobody vouches for fails") {
    const TlsServer server;
    if (!server.IsRunning()) {
        MESSAGE("skipped: no openssl to serve with");
        return;
    }
    const ULONGLONG start = GetTickCount64();
    CHECK(Fails(server.Address() + u"/f", minute));
    CHECK(GetTickCount64() - start < minute); // it was refused, not waited for
}

TEST_CASE("windows update check: at most 64 KB") {
    const std::string most(fetchLimit, 'x');
    CHECK(FetchedFrom(Always("200 OK", most)) == most);
    CHECK(FetchedFrom(Sends("HTTP/1.0 200 OK\r\n\r\n" + most)) == most);
    CHECK(Fails(Always("200 OK", most + 'x')));
    CHECK(Fails(Always("200 OK", std::string(10 << 20, 'x'))));
    CHECK(Fails([&most](const LoopbackConnection& connection, const std::string&) { // unbounded
        connection.Send("HTTP/1.1 200 OK\r\n\r\n");
        while (connection.Send(most)) {
        }
    }));
}

TEST_CASE("windows update check: one time limit for everything") {
    const auto half = [](const LoopbackConnection& connection, const std::string&) {
        connection.Send("HTTP/1.1 200 OK\r\nContent-Length: 20\r\n\r\n{");
        connection.WaitUntilClosed();
    };
    // Each byte comes in time, all together do not.
    const auto slow = [](const LoopbackConnection& connection, const std::string&) {
        connection.Send("HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\n");
        while (connection.Send("x"))
            Sleep(20);
    };
    // So do the redirections, before there are too many.
    const auto circle = [](const LoopbackConnection& connection, const std::string&) {
        Sleep(shortTime / 2);
        connection.Send(RedirectionBytes("/again"));
    };
    for (const LoopbackServer::Answer& answer :
         {LoopbackServer::Answer(Silent), {half}, {slow}, {circle}}) {
        const ULONGLONG start = GetTickCount64();
        CHECK(Fails(answer, shortTime));
        CHECK(GetTickCount64() - start >= shortTime - 20);
        CHECK(GetTickCount64() - start < fetchTime);
    }
}

TEST_CASE("windows update check: goes where it is sent only by the rules it started with") {
    for (const char* target : {"/a/end", "end", "../a/end"})
        CHECK_MESSAGE(FetchedFrom(RedirectsTo(target)) == file, target);
    const LoopbackServer server(RedirectsTo("end"));
    CHECK(Fetch(server.Address() + u"/a/f").status == FetchStatus::Ok);
    REQUIRE(server.Requests().size() == 2);
    CHECK_FALSE(Holds(Lower(server.Requests()[1]), "cookie:"));
    CHECK_FALSE(Holds(Lower(server.Requests()[1]), "referer:"));
    for (const char* target :
         {"file:///C:/windows/win.ini", "ftp://127.0.0.1/f", "data:text/plain,x", "http:///",
          "http://192.0.2.1/f", "http://norvaset.example/f", "http://a:b@127.0.0.1/a/end",
          "javascript:1", "res://a/b"})
        CHECK_MESSAGE(Fails(RedirectsTo(target)), target);
    CHECK(Fails(Always("302 Found", file))); // without saying where to
    CHECK(Fails(RedirectsTo("/" + std::string(5000, 'x'))));
}

TEST_CASE("windows update check: a circle of redirections ends") {
    constexpr std::size_t maxRequests = 6; // the first one and five that it leads to
    const LoopbackServer server(RedirectsTo("/again"));
    CHECK(Fails(server.Address() + u"/a/f", minute));
    CHECK(server.Requests().size() == maxRequests);
}

TEST_CASE("windows update check: the program lives on meanwhile") {
    int ticks = 0;
    const WinNativeWindow window({L"NorvasetTestTicks", 0, 0, HWND_MESSAGE},
                                 [&ticks](HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
                                     if (message == WM_TIMER) ++ticks;
                                     return DefWindowProcW(handle, message, wParam, lParam);
                                 });
    SetTimer(window.Handle(), 1, USER_TIMER_MINIMUM, nullptr);
    CHECK(Fails(Silent, shortTime));
    CHECK(ticks > 3);
}

TEST_CASE("windows update check: its messages pass where the program's do") {
    const LoopbackServer server(Silent);
    bool seen = false;
    PostThreadMessageW(GetCurrentThreadId(), WM_APP + 7, 0, 0);
    WinUpdateCheck check(
        [&seen](const MSG& message) {
            seen = seen || message.message == WM_APP + 7;
            return false; // not handled: dispatch it
        },
        shortTime);
    check.Fetch(server.Address());
    CHECK(seen);
}

TEST_CASE("windows update check: the program's end is the end of it") {
    const LoopbackServer server(Silent);
    PostQuitMessage(3);
    CHECK(Fetch(server.Address()).status == FetchStatus::Abandoned);
    MSG message;
    REQUIRE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)); // the loop learns of it
    CHECK(message.wParam == 3);
}
