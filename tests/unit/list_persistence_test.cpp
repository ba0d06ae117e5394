#include "common/utf.h"
#include "datafile/list_persistence.h"
#include "platform/none/none_clock.h"
#include "platform/none/none_files.h"

#include <doctest/doctest.h>

namespace {

using Texts = std::vector<std::u16string>;

std::u16string NotNeeded(int, std::string_view) {
    return {};
}

struct Store {
    NoneClock clock;
    NoneFiles files{clock};
    std::u16string path = u"/home/reader/Norvaset.dat";
    IniFile ini{files, path, 1252, NotNeeded};

    explicit Store(std::string_view bytes) { files.AddFile(path, bytes); }
    std::string Bytes() const { return files.Bytes(path); }
};

} // namespace

TEST_CASE("list persistence: texts") {
    Store store("[t]\r\nkeep=1\r\n");
    const Texts texts{u"Default", u"", u"a=b", u"Ж"};
    SaveListToSection(store.ini, u"s", texts);
    CHECK(store.Bytes() == "[t]\r\nkeep=1\r\n[s]\r\n0=Default\r\n1=\r\n2=a=b\r\n3=Ж\r\n");
    Texts loaded{u"old"};
    CHECK(LoadListFromSection(store.ini, u"S", &loaded) == u"Default\r\n\r\na=b\r\nЖ");
    CHECK(loaded == texts);
    CHECK(LoadListFromSection(store.ini, u"s", nullptr, u"|") == u"Default||a=b|Ж");
    CHECK(LoadSectionLines(store.ini, u"s") == Texts{u"0=Default", u"1=", u"2=a=b", u"3=Ж"});

    SaveListToSection(store.ini, u"s", Texts{u"one"});
    CHECK(store.Bytes() == "[t]\r\nkeep=1\r\n[s]\r\n0=one\r\n");
    SaveListToSection(store.ini, u"s", Texts{});
    CHECK(store.Bytes() == "[t]\r\nkeep=1\r\n[s]\r\n");
}

TEST_CASE("list persistence: what is not there is an empty list") {
    Store store("[s]\r\n");
    Texts loaded{u"old"};
    std::vector<ListItem> items{{u"old", 1}};
    CHECK(LoadListFromSection(store.ini, u"none", &loaded) == u"");
    CHECK(loaded.empty());
    store.files.Remove(store.path);
    CHECK(LoadListFromSection(store.ini, u"s", items, u";") == u"");
    CHECK(items.empty());
    CHECK(LoadSectionLines(store.ini, u"s").empty());
    CHECK(LoadSectionText(store.ini, u"s") == u"");
}

TEST_CASE("list persistence: items with data") {
    Store store("");
    const std::vector<ListItem> items{{u"Some book", 42}, {u"a;b", -1}, {u"", 0}};
    SaveListToSection(store.ini, u"s", items, u";");
    CHECK(store.Bytes() == "[s]\r\n0=Some book;42\r\n1=a;b;-1\r\n2=;0\r\n");
    std::vector<ListItem> loaded;
    CHECK(LoadListFromSection(store.ini, u"s", loaded, u";") == u"Some book;42\r\na;b;-1\r\n;0");
    CHECK(loaded == items);

    SaveListToSection(store.ini, u"s", items, u"");
    CHECK(store.Bytes() == "[s]\r\n0=Some book\r\n1=a;b\r\n2=\r\n");
    LoadListFromSection(store.ini, u"s", loaded, u"");
    CHECK(loaded == std::vector<ListItem>{{u"Some book", 0}, {u"a;b", 0}, {u"", 0}});
    LoadListFromSection(store.ini, u"s", loaded, u";");
    CHECK(loaded[1] == ListItem{u"a", 0}); // "b" is no number
}

TEST_CASE("list persistence: a menu without its separators, numbered without gaps") {
    Store store("");
    MenuArray menu;
    for (const char16_t* caption : {u"&First", u"-", u"Second\tCtrl+S", u"-", u"Third"}) {
        menu.items.emplace_back().caption = caption;
    }
    menu[0].tag = u"tag";
    menu[1].tag = u"not saved";
    SaveListToSection(store.ini, u"s", menu);
    CHECK(store.Bytes() == "[s]\r\n0=&First\r\n1=Second\tCtrl+S\r\n2=Third\r\n");
    SaveListToSection(store.ini, u"s", menu, u"|");
    CHECK(store.Bytes() == "[s]\r\n0=&First|tag\r\n1=Second\tCtrl+S\r\n2=Third\r\n");
    SaveListToSection(store.ini, u"s", MenuArray());
    CHECK(store.Bytes() == "[s]\r\n");
}

TEST_CASE("list persistence: the lines of a text") {
    Store store("");
    SaveListToSection(store.ini, u"s", u"/a.txt=1=2\r\nplain\r\n\r\n/b.txt=3");
    CHECK(store.Bytes() == "[s]\r\n/a.txt=1=2\r\n1=plain\r\n2=\r\n/b.txt=3\r\n");
    CHECK(LoadListFromSection(store.ini, u"s") == u"1=2\r\nplain\r\n\r\n3");
    SaveListToSection(store.ini, u"s", u"a|b", u"|");
    CHECK(store.Bytes() == "[s]\r\n0=a\r\n1=b\r\n");
    SaveListToSection(store.ini, u"s", u"");
    CHECK(store.Bytes() == "[s]\r\n");
}

TEST_CASE("list persistence: lines written by hand") {
    Store store("[s]\r\n ; note\r\n  0 =  a  \r\nbare\r\n7=x=y\r\n\r\n");
    Texts loaded;
    CHECK(LoadListFromSection(store.ini, u"s", &loaded) == u"a\r\nbare\r\nx=y");
    CHECK(loaded == Texts{u"a", u"bare", u"x=y"});
    CHECK(LoadSectionLines(store.ini, u"s") == Texts{u"0=a", u"bare", u"7=x=y"});
}

TEST_CASE("list persistence: saving keeps the time and the read-only attribute") {
    Store store("[s]\r\n0=a\r\n");
    store.files.Find(store.path)->readOnly = true;
    const DateTime before = store.files.Find(store.path)->lastWrite;
    store.clock.Advance(std::chrono::hours(1));
    SaveListToSection(store.ini, u"s", Texts{u"b"});
    CHECK(store.Bytes() == "[s]\r\n0=b\r\n");
    CHECK(store.files.Find(store.path)->lastWrite == before);
    CHECK(store.files.Find(store.path)->readOnly);
    SaveListToSection(store.ini, u"s", Texts{u"b"});
    CHECK(store.files.replaceCalls.size() == 1); // the same bytes and the same time: no write

    SaveSectionText(store.ini, u"s", u"c\r\nd");
    CHECK(store.Bytes() == "[s]\r\n0=c\r\n1=d\r\n");
    CHECK(LoadSectionText(store.ini, u"s") == u"c\r\nd");
    CHECK(store.files.Find(store.path)->lastWrite == store.clock.Now());
    CHECK(store.files.Find(store.path)->readOnly);
    SaveSectionText(store.ini, u"s", Texts{u"e"});
    CHECK(store.Bytes() == "[s]\r\n0=e\r\n");
}

TEST_CASE("list persistence: a section of any length, and values that would break lines") {
    Store store("[t]\r\na=1\r\n");
    const Texts texts(5000, std::u16string(100, u'x'));
    SaveListToSection(store.ini, u"s", texts);
    Texts loaded;
    CHECK(LoadListFromSection(store.ini, u"s", &loaded).size() == 5000 * 102 - 2);
    CHECK(loaded == texts);
    SaveListToSection(store.ini, u"s", Texts{u"a\r\n[t]\r\na=2", u"[x]", u";y"});
    CHECK(store.Bytes() == "[t]\r\na=1\r\n[s]\r\n0=a  [t]  a=2\r\n1=[x]\r\n2=;y\r\n");
}
