// The system's own loading of addresses, with the view's refusal in between.
#include <winsock2.h>

#include "platform/windows/html_view/remote_refusal.h"
#include "platform/windows/html_view/urlmon.h"

#include <doctest/doctest.h>

#include <string>

namespace {

std::string ReadAddress(const std::wstring& url) {
    const auto open = UrlmonFunction<decltype(&URLOpenBlockingStreamW)>("URLOpenBlockingStreamW");
    const bool known = open != nullptr;
    REQUIRE(known);
    ComPtr<IStream> stream;
    if (FAILED(open(nullptr, url.c_str(), stream.Put(), 0, nullptr))) return "refused";
    char text[64] = {};
    ULONG read = 0;
    stream->Read(text, sizeof text, &read);
    return std::string(text, read);
}

std::wstring FileWith(const std::string& text) {
    wchar_t folder[MAX_PATH] = {}, path[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, folder);
    GetTempFileNameW(folder, L"nor", 0, path);
    const HANDLE file =
        CreateFileW(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    DWORD written = 0;
    WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    CloseHandle(file);
    return path;
}

// A server of this machine that only tells whether anybody came.
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
    std::wstring Address() const {
        return L"http://127.0.0.1:" + std::to_wstring(port_) + L"/a.png";
    }
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

struct OleForTest {
    OleForTest() { OleInitialize(nullptr); }
    ~OleForTest() { OleUninitialize(); }
};

} // namespace

TEST_CASE("remote refusal: files of this machine load, other machines are not asked") {
    const OleForTest ole;
    const std::wstring path = FileWith("local text");
    const std::wstring url = L"file:///" + path;
    CHECK(ReadAddress(url) == "local text");
    {
        const RemoteRefusal refusal(L"");
        CHECK(ReadAddress(url) == "local text");
        const Listener listener;
        CHECK(ReadAddress(listener.Address()) == "refused");
        CHECK_FALSE(listener.WasAsked());
        CHECK(ReadAddress(L"file://norvaset.invalid/share/a.png") == "refused");
    }
    CHECK(ReadAddress(url) == "local text");
    DeleteFileW(path.c_str());
}
