// The system's own loading of addresses, with the view's blocker in between.
#include <winsock2.h>

#include "platform/windows/base/text.h"
#include "platform/windows/files/win_files.h"
#include "platform/windows/html_view/safety/remote_blocker.h"
#include "platform/windows/html_view/safety/urlmon.h"
#include "tests/contract/temporary_folder_windows.h"
#include "tests/contract/windows_listener.h"

#include <doctest/doctest.h>

#include <string>
#include <string_view>

namespace {

std::string ReadAddress(const std::wstring& url) {
    const auto open = UrlmonFunction<decltype(&URLOpenBlockingStreamW)>("URLOpenBlockingStreamW");
    const bool known = open != nullptr;
    REQUIRE(known);
    ComPtr<IStream> stream;
    if (FAILED(open(nullptr, url.c_str(), &stream, 0, nullptr))) return "refused";
    char text[64] = {};
    ULONG read = 0;
    stream->Read(text, sizeof text, &read);
    return std::string(text, read);
}

// Returns its address.
std::wstring PutFile(const std::wstring& path, std::string_view text = "local text") {
    REQUIRE(WinFiles().CreateFolder(FromWide(path.substr(0, path.rfind(L'\\')))));
    REQUIRE(WinFiles().Replace(FromWide(path), text, WriteTime::Now));
    return L"file:///" + path;
}

struct OleForTest {
    OleForTest() { OleInitialize(nullptr); }
    ~OleForTest() { OleUninitialize(); }
};

} // namespace

TEST_CASE("remote blocker: files of the book's folder load, others and other machines do not") {
    const OleForTest ole;
    const TemporaryFolder folder;
    const std::wstring path = folder.path + L"\\books\\a.txt", url = PutFile(path);
    const std::wstring below = PutFile(folder.path + L"\\books\\pictures\\b.txt");
    const std::wstring beside = PutFile(folder.path + L"\\books of others\\c.txt");
    const std::wstring above = PutFile(folder.path + L"\\d.txt");
    for (const std::wstring& address : {url, below, beside, above})
        CHECK(ReadAddress(address) == "local text");
    {
        const RemoteBlocker blocker{BookFolder(path)};
        CHECK(ReadAddress(below) == "local text");
        CHECK(ReadAddress(L"file:///" + folder.path + L"\\BOOKS\\A.TXT") == "local text");
        CHECK(ReadAddress(L"file:///" + folder.path + L"\\books\\pictures\\..\\a.txt") ==
              "local text");
        CHECK(ReadAddress(beside) == "refused");
        CHECK(ReadAddress(above) == "refused");
        CHECK(ReadAddress(L"file:///" + folder.path + L"\\books\\..\\d.txt") == "refused");
        CHECK(ReadAddress(L"file:///" + folder.path + L"\\books\\%2E%2E\\d.txt") == "refused");
        CHECK(ReadAddress(L"file:///C:/windows/win.ini") == "refused");
        CHECK(ReadAddress(url) == "local text");
        const Listener listener;
        const std::string address = listener.Address();
        const std::wstring server(address.begin(), address.end());
        CHECK(ReadAddress(server) == "refused");
        CHECK_FALSE(listener.WasContacted());
        CHECK(ReadAddress(L"file://norvaset.invalid/share/a.png") == "refused");
    }
    for (const std::wstring& address : {url, below, beside, above})
        CHECK(ReadAddress(address) == "local text");
}

TEST_CASE("remote blocker: what a page may load") {
    const TemporaryFolder folder;
    PutFile(folder.path + L"\\books\\pictures\\b.txt");
    const BookFolder book(folder.path + L"\\books\\a.htm");
    const std::wstring books = L"file:///" + folder.path + L"\\books\\";
    CHECK(book.Allows(books + L"pictures\\b.txt"));
    CHECK(book.Allows(books + L"not there.png"));
    CHECK(book.Allows(L"about:blank"));
    CHECK(book.Allows(L"data:image/png;base64,AA"));
    CHECK_FALSE(book.Allows(books + L"pictures")); // would show the folder
    CHECK_FALSE(book.Allows(books));
    CHECK_FALSE(book.Allows(L"file://server/share/a.png"));
    CHECK_FALSE(book.Allows(L"http://a/b.png"));
    CHECK_FALSE(book.Allows(L""));
    CHECK_FALSE(BookFolder().Allows(books + L"pictures\\b.txt"));
    CHECK(BookFolder(L"\\\\norvaset.invalid\\share\\a.htm")
              .Allows(L"file://Norvaset.Invalid/share/b.png"));
    CHECK_FALSE(BookFolder(L"\\\\norvaset.invalid\\share\\a.htm")
                    .Allows(L"file://norvaset.invalid/other/b.png"));
}
