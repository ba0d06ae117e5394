#include "platform/windows/system/launch.h"

#include "platform/windows/base/text.h"
#include "platform/windows/base/win32.h"

#include <doctest/doctest.h>

TEST_CASE("windows launch: the book's path is made full against the current folder") {
    wchar_t folder[1024] = {};
    GetCurrentDirectoryW(1024, folder);
    const std::u16string here = FromWide(folder);
    const struct {
        std::vector<std::wstring> arguments;
        std::u16string path;
    } cases[] = {
        {{}, u""},
        {{L""}, u""},
        {{L"C:\\books\\a b.txt"}, u"C:\\books\\a b.txt"},
        {{L"C:\\books\\a", L"b.txt"}, u"C:\\books\\a b.txt"}, // given without quotes
        {{L"C:/books/../x/Книга.rtf"}, u"C:\\x\\Книга.rtf"},
        {{L"book.txt"}, here + u"\\book.txt"},
        {{std::wstring(40'000, L'x')}, u""}, // longer than any path
    };
    for (const auto& [arguments, path] : cases)
        CHECK(BookPath(arguments) == path);
}

TEST_CASE("windows launch: it says where the program stands") {
    const Launch launch = ThisLaunch();
    CHECK(launch.executableName == u"contract_tests_windows");
    CHECK_FALSE(launch.programFolder.ends_with(u"\\"));
    const DWORD attributes = GetFileAttributesW(ToWide(launch.programFolder).c_str());
    CHECK((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0);
    CHECK(launch.userDataFolder.ends_with(u"\\Norvaset"));
    CHECK_FALSE(launch.rootFolder.empty());
    CHECK(launch.programsFolder.ends_with(u":\\"));
}
