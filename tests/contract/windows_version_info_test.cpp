#include "platform/windows/base/text.h"
#include "platform/windows/files/win_files.h"
#include "platform/windows/system/win_version_info.h"
#include "temporary_folder_windows.h"
#include "windows_helper.h"

#include <doctest/doctest.h>

TEST_CASE("windows version info: what a program says of itself") {
    const std::u16string helper = FromWide(HelperPath());
    struct Row {
        const char16_t *key, *value;
    };
    const Row rows[] = {
        {u"FileDescription", u"Помощник “проверки” © 2026"},
        {u"ProductName", u"Helper"},
        {u"productname", u"Helper"},
        {u"Comments", u""},
        {u"LegalCopyright", u""}, // in its second language only
        {u"FileVersion", u"2.05.1.0012"},
        {u"Language", u"0419"},
        {u"None", u""},
        {u"", u""},
    };
    for (const Row& row : rows) {
        CHECK(GetFileVersionString(helper, row.key) == row.value);
    }
}

TEST_CASE("windows version info: a file without any") {
    const TemporaryFolder folder;
    const std::u16string text = FromWide(folder.path) + u"\\a.exe";
    REQUIRE(WinFiles().Replace(text, "MZ but no program", WriteTime::Now));
    for (const std::u16string& path :
         {text, FromWide(folder.path) + u"\\none.exe", FromWide(folder.path), std::u16string(),
          std::u16string(u"NUL"), std::u16string(u"C:\\a?b")}) {
        for (const char16_t* key : {u"FileDescription", u"FileVersion", u"Language"})
            CHECK(GetFileVersionString(path, key).empty());
    }
}

TEST_CASE("windows version info: by a long path") {
    const TemporaryFolder folder;
    const std::u16string deep = FromWide(folder.path) + u"\\" + std::u16string(200, u'x');
    REQUIRE(WinFiles().CreateFolder(deep));
    const std::u16string copy = deep + u"\\" + std::u16string(100, u'y') + u".exe";
    std::string bytes;
    REQUIRE(WinFiles().Read(FromWide(HelperPath()), 1u << 30, bytes) == ReadStatus::Ok);
    REQUIRE(WinFiles().Replace(copy, bytes, WriteTime::Now));
    CHECK(GetFileVersionString(copy, u"ProductName") == u"Helper");
}
