#include "common/paths.h"

#include <doctest/doctest.h>

TEST_CASE("paths: folder and name by the system's separator") {
    const struct {
        std::u16string_view path;
        char16_t separator;
        std::u16string_view folder, name;
    } rows[] = {
        {u"/books/a.txt", u'/', u"/books", u"a.txt"},
        {u"/a.txt", u'/', u"/", u"a.txt"},
        {u"/books/", u'/', u"/books", u""},
        {u"a.txt", u'/', u"", u"a.txt"},
        {u"", u'/', u"", u""},
        {u"/books/a\\b.txt", u'/', u"/books", u"a\\b.txt"},
        {u"C:\\books\\a.txt", u'\\', u"C:\\books", u"a.txt"},
        {u"C:\\a.txt", u'\\', u"C:", u"a.txt"},
    };
    for (const auto& row : rows) {
        CHECK((FolderOf(row.path, row.separator) == row.folder));
        CHECK((FileNameOf(row.path, row.separator) == row.name));
    }
}

TEST_CASE("paths: the folder of a path of either system") {
    CHECK((FolderOf(u"/books/a\\b") == u"/books"));
    CHECK((FolderOf(u"C:\\books/a") == u"C:\\books"));
    CHECK((FolderOf(u"/a") == u""));
    CHECK((FolderOf(u"a") == u"a"));
}

TEST_CASE("paths: of another machine") {
    CHECK(IsNetworkPath(u"\\\\server\\share\\a.txt"));
    CHECK(IsNetworkPath(u"//server/share/a.txt"));
    CHECK_FALSE(IsNetworkPath(u"/server/a.txt"));
    CHECK_FALSE(IsNetworkPath(u"C:\\a.txt"));
}
