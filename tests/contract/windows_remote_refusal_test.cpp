// The system's own loading of addresses, with the view's refusal in between.
#include <winsock2.h>

#include "platform/windows/html_view/remote_refusal.h"
#include "platform/windows/html_view/urlmon.h"
#include "tests/contract/windows_listener.h"

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
        const std::string address = listener.Address();
        const std::wstring server(address.begin(), address.end());
        CHECK(ReadAddress(server) == "refused");
        CHECK_FALSE(listener.WasAsked());
        CHECK(ReadAddress(L"file://norvaset.invalid/share/a.png") == "refused");
    }
    CHECK(ReadAddress(url) == "local text");
    DeleteFileW(path.c_str());
}
