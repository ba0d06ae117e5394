#include "platform/windows/portable/quoted_argument.h"
#include "platform/windows/system/win_shell.h"
#include "windows_registered.h"
#include "windows_start_recorder.h"

#include <doctest/doctest.h>

#include <shellapi.h>

#include <future>
#include <memory>

namespace {

const wchar_t* const arguments[] = {
    L"C:\\books\\Walden.txt",
    L"C:\\books\\War and Peace.txt",
    L"",
    L" ",
    L"\\",
    L"ends in a backslash\\",
    L"C:\\my books\\\\",
    L"\"",
    L"\\\"",
    L"\"quoted\"",
    L"a\"b c\\\"d\\\\\"e \\ f\\\\ ",
    L"tab\tnew line\nend",
    L"%PATH% & | < > ^ ' `",
    L"\u0411\u0443\u043B\u0433\u0430\u043A\u043E\u0432 \u05E9\u05DC\u05D5\u05DD \U0001D11E",
    L"/switch --option=\"x\"",
};

} // namespace

TEST_CASE("windows arguments: the system reads what was quoted") {
    for (const wchar_t* argument : arguments) {
        int count = 0;
        const std::wstring line = L"program " + QuotedArgument(argument) + L" next";
        const std::unique_ptr<wchar_t*, HLOCAL (*)(HLOCAL)> read(
            CommandLineToArgvW(line.c_str(), &count),
            reinterpret_cast<HLOCAL (*)(HLOCAL)>(LocalFree));
        REQUIRE(count == 3);
        CHECK((std::wstring(read.get()[1]) == argument));
        CHECK((std::wstring(read.get()[2]) == L"next"));
    }
}

TEST_CASE("windows shell: a scheme that no program has taken over, and a kind of files") {
    const StartRecorder starts;
    Registered scheme(L"norvasettest", starts.Program());
    const Registered noScheme(L"norvasetkind", starts.Program());
    scheme.IsScheme();
    WinShell().OpenAddress(u"norvasetnone:+1");
    WinShell().OpenAddress(u"norvasetkind:+1");
    WinShell().OpenAddress(u"javascript:norvasettest:+1");
    WinShell().OpenAddress(u"norvasettest:+4912");
    CHECK((starts.NextStart() == std::vector<std::u16string>{u"norvasettest:+4912"}));
}

TEST_CASE("windows shell: another stream of a file is not opened") {
    const StartRecorder starts;
    const Registered kind(L"norvasettest.song", starts.Program());
    Registered extension(L".norvasettest", starts.Program());
    extension.IsKind(L"norvasettest.song");
    const std::u16string path = starts.Folder() + u"\\a song.norvasettest";
    REQUIRE(WinFiles().Replace(path, "la la", WriteTime::Now));
    WinShell().OpenFile(path + u":b.norvasettest");
    WinShell().OpenFile(path);
    CHECK((starts.NextStart() == std::vector<std::u16string>{path}));
}

TEST_CASE("windows shell: a book that reached a program at its end was not taken") {
    const StartRecorder starts; // with a folder
    const std::u16string file = starts.Folder() + u"\\Norvaset.dat";
    WinShell first;
    int opened = 0;
    first.onStartRequest = [&](const StartRequest&) { ++opened; };
    REQUIRE(first.ClaimDataFile(file).IsGranted());
    auto answer = std::async(
        std::launch::async, [&] { return WinShell().HandOverBook(file, u"C:\\b\\a.txt", 20'000); });
    MSG message; // its own, which waits to be handled; what others send is dispatched meanwhile
    const ULONGLONG end = GetTickCount64() + 10'000;
    const auto isNoted = [&] {
        return PeekMessageW(&message, nullptr, WM_APP, WM_APP, PM_NOREMOVE) != 0;
    };
    while (!isNoted() && GetTickCount64() < end)
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
    REQUIRE(isNoted());
    first.onStartRequest = nullptr;
    REQUIRE(Becomes(
        [&] { return answer.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }));
    CHECK(answer.get() == HandOver::Refused);
    CHECK(opened == 0);
}

TEST_CASE("windows shell: the default editor is the system's") {
    CHECK(WinShell().DefaultTextEditor().ends_with(u"\\notepad.exe"));
}
