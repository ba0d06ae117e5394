#include "platform/windows/portable/quoted_argument.h"
#include "platform/windows/system/win_shell.h"
#include "runs_under_wine.h"
#include "windows_helper_run.h"

#include <doctest/doctest.h>

#include <shellapi.h>

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

TEST_CASE("windows shell: an argument reaches a program as it is") {
    HelperRun helper(HelperTells);
    const std::u16string program = FromWide(HelperPath());
    for (const wchar_t* argument : arguments) {
        WinShell().OpenWith(program, FromWide(argument));
        CHECK((helper.Answer() == std::wstring(L"1:") + argument));
    }
    const std::wstring longest(30'000, L'x');
    WinShell().OpenWith(program, FromWide(longest));
    CHECK((helper.Answer() == L"1:" + longest));
}

TEST_CASE("windows shell: a program of a name full of blanks, and one that is not there") {
    HelperRun helper(HelperTells);
    const TemporaryFolder folder;
    const std::wstring program =
        folder.path + L"\\my \u0440\u0435\u0434\u0430\u043A\u0442\u043E\u0440.exe";
    REQUIRE(CopyFileW(HelperPath().c_str(), program.c_str(), TRUE));
    WinShell().OpenWith(FromWide(folder.path) + u"\\none.exe", u"x");
    WinShell().OpenWith(u"", u"x");
    WinShell().OpenAddress(FromWide(program)); // neither web nor mail
    WinShell().OpenAddress(u"file:///" + FromWide(program));
    WinShell().OpenWith(FromWide(program), u"a b");
    CHECK((helper.Answer() == L"1:a b")); // and nothing was started before
}

namespace {

// A program that has taken over a scheme, or a kind of files, as its setup writes it down.
class Registered {
  public:
    explicit Registered(const std::wstring& name) : key_(L"Software\\Classes\\" + name) {
        Set(L"\\shell\\open\\command", L"", L"\"" + HelperPath() + L"\" \"%1\"");
    }
    ~Registered() { RegDeleteTreeW(root_, key_.c_str()); }

    void IsScheme() { Set(L"", L"URL Protocol", L""); }
    void IsKind(const std::wstring& name) { Set(L"", L"", name); }

  private:
    void Set(const std::wstring& below, const wchar_t* name, const std::wstring& text) {
        RegSetKeyValueW(root_, (key_ + below).c_str(), name, REG_SZ, text.c_str(),
                        static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
    }
    // Wine's classes are those of the machine alone.
    const HKEY root_ = RunsUnderWine() ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
    std::wstring key_;
};

} // namespace

TEST_CASE("windows shell: an address goes to the program that has taken over its scheme") {
    HelperRun helper(HelperTells);
    Registered scheme(L"norvasettest"), noScheme(L"norvasetkind");
    scheme.IsScheme();
    WinShell().OpenAddress(u"norvasetnone:+1"); // nobody's
    WinShell().OpenAddress(u"norvasetkind:+1"); // of files
    WinShell().OpenAddress(u"javascript:norvasettest:+1");
    WinShell().OpenAddress(u"norvasettest:+49 12");
    WinShell().OpenAddress(u"norvasettest:+4912");
    CHECK((helper.Answer() == L"1:norvasettest:+4912")); // and nothing was started before
}

TEST_CASE("windows shell: a file goes to the program for its kind") {
    HelperRun helper(HelperTells);
    const TemporaryFolder folder;
    const Registered kind(L"norvasettest.song");
    Registered extension(L".norvasettest");
    extension.IsKind(L"norvasettest.song");
    const std::u16string path = FromWide(folder.path) + u"\\a song.norvasettest";
    REQUIRE(WinFiles().Replace(path, "la la", false));
    WinShell().OpenFile(u"a song.norvasettest");
    WinShell().OpenFile(path + u":b.norvasettest");
    WinShell().OpenFile(path);
    CHECK((helper.Answer() == L"1:" + ToWide(path)));
}

TEST_CASE("windows shell: the default editor is there") {
    const std::u16string editor = WinShell().DefaultTextEditor();
    CHECK(editor.ends_with(u"\\notepad.exe"));
    CHECK(WinFiles().FileExists(editor));
}
