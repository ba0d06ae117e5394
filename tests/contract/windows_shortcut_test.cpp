// Shortcuts (.lnk) in the place of the books that they lead to.
#include "platform/windows/base/com_ptr.h"
#include "platform/windows/base/text.h"
#include "platform/windows/files/win_files.h"
#include "platform/windows/window/win_drops.h"
#include "tests/contract/temporary_folder_windows.h"
#include "tests/contract/windows_drop.h"

#include <doctest/doctest.h>

#include <ole2.h>
#include <shobjidl.h>

namespace {

using Paths = std::vector<std::u16string>;

struct OleForTest { // as main.cpp has it
    OleForTest() { OleInitialize(nullptr); }
    ~OleForTest() { OleUninitialize(); }
    OleForTest(const OleForTest&) = delete;
    OleForTest& operator=(const OleForTest&) = delete;
};

void MakeShortcut(const std::wstring& shortcut, const std::wstring& target) {
    ComPtr<IShellLinkW> link;
    REQUIRE(SUCCEEDED(
        CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&link))));
    REQUIRE(SUCCEEDED(link->SetPath(target.c_str())));
    REQUIRE(SUCCEEDED(Query<IPersistFile>(link)->Save(shortcut.c_str(), TRUE)));
}

void Write(const std::wstring& path, std::string_view bytes) {
    REQUIRE(WinFiles().Replace(FromWide(path), bytes, WriteTime::Now));
}

Paths Dropped(const std::wstring& path) {
    return FinishDrop(static_cast<HDROP>(DroppedMemory(path + L'\0')));
}

} // namespace

TEST_CASE("windows shortcut: a dropped one is the book that it leads to") {
    const OleForTest ole;
    const TemporaryFolder folder;
    const std::wstring book = folder.path + L"\\Война и мир.txt";
    const std::wstring shortcut = folder.path + L"\\A book.LNK";
    Write(book, "lanterns");
    MakeShortcut(shortcut, book);
    CHECK(Dropped(shortcut) == Paths{FromWide(book)});
    // Of a book that has gone: that is what the message names.
    REQUIRE(DeleteFileW(book.c_str()));
    CHECK(Dropped(shortcut) == Paths{FromWide(book)});
}

TEST_CASE("windows shortcut: what is none, or leads to no file, stays what it is") {
    const OleForTest ole;
    const TemporaryFolder folder;
    for (const wchar_t* name : {L"\\letters.lnk", L"\\empty.lnk", L"\\missing.lnk"}) {
        const std::wstring path = folder.path + name;
        if (path.ends_with(L"letters.lnk")) Write(path, "as one writes them by hand");
        if (path.ends_with(L"empty.lnk")) Write(path, "");
        CHECK(Dropped(path) == Paths{FromWide(path)});
    }
    const std::wstring other = folder.path + L"\\a shortcut.txt";
    MakeShortcut(other, folder.path + L"\\a book.txt");
    CHECK(Dropped(other) == Paths{FromWide(other)});
}
