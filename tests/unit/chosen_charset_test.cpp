// The charset that a reader chooses for a book in the font dialog.
#include "app/file_menu.h"
#include "app/open_book.h"
#include "formats/codepages/code_pages.h"
#include "test_form.h"

#include <doctest/doctest.h>

#include <algorithm>

namespace {
constexpr std::u16string_view pangram = u"\u0421\u044A\u0435\u0448\u044C \u0435\u0449\u0451";

// "Eat some more", in DOS 866, on numbered lines.
std::string Lines(int count) {
    std::string text;
    for (int i = 0; i < count; ++i)
        text += "\x91\xEA\xA5\xE8\xEC \xA5\xE9\xF1 " + std::to_string(i) + "\r\n";
    return text;
}

struct Reading : TestForm {
    explicit Reading(std::string_view text) {
        PutBook(u"/b/a.txt", text);
        Start();
        OpenBook(form, u"/b/a.txt");
    }
};

std::u16string Shown(TestForm& test) {
    return test.View().TextRange(0, test.View().TextLength());
}

void ChooseFont(TestForm& test) {
    test.Menus().Open(test.Menu().mView);
    test.Menus().Click(test.Menu().mViewFont);
}

// What the dialog offers; it is confirmed as it is.
FontRequest Offered(TestForm& test) {
    test.Dialogs().fontAnswer.reset();
    ChooseFont(test);
    return test.Dialogs().fontRequests.back();
}

// As the dialog does: the reading brings its script along.
void ChooseReading(TestForm& test, std::u16string_view name) {
    const FontRequest request = Offered(test);
    const auto chosen = std::ranges::find(request.readings, name, &TextReading::name);
    REQUIRE(chosen != request.readings.end());
    ViewFont font = request.font;
    if (chosen->charset >= 0) font.charset = chosen->charset;
    test.Dialogs().fontAnswer = FontAnswer{DialogResult::Ok, font, request.color,
                                           static_cast<int>(chosen - request.readings.begin())};
    ChooseFont(test);
}
} // namespace

TEST_CASE(
    "chosen charset: the dialog is offered what the book reads like, the present one marked") {
    Reading test(Lines(20));
    const FontRequest request = Offered(test);
    REQUIRE(request.readings.size() > 15);
    CHECK(request.reading == 0);
    CHECK(request.readings[0].name == u"Cyrillic (DOS 866)");
    CHECK(request.readings[0].line.starts_with(pangram));
    CHECK(request.readings[0].charset == 204);
    CHECK(std::ranges::count(request.readings, 204, &TextReading::charset) > 3);
    for (const int script :
         {0, 128, 129, 130, 134, 136, 161, 162, 163, 177, 178, 186, 204, 222, 238, 254})
        CHECK_MESSAGE(std::ranges::count(request.readings, script, &TextReading::charset), script);
}

TEST_CASE("chosen charset: none is offered for rich text, a page, ASCII and a book with a mark") {
    for (const char* const text : {"plain", "\xEF\xBB\xBF\xC3\xA9", "{\\rtf1 \\'e9}"}) {
        Reading test(text);
        const FontRequest request = Offered(test);
        CHECK(request.readings.empty());
        CHECK(request.reading == -1);
    }
    TestForm none;
    REQUIRE(none.Start());
    CHECK(Offered(none).readings.empty());
}

TEST_CASE("chosen charset: confirmed as it is nothing is chosen and nothing written") {
    Reading test(Lines(20));
    const std::string before = test.DataFile();
    Offered(test);
    CHECK(test.form.book.chosen.codePage == 0);
    CHECK(test.DataFile() == before);
}

TEST_CASE("chosen charset: another one of the same script holds, exactly and for this book only") {
    Reading test(Lines(300));
    test.PutBook(u"/b/other.txt", Lines(20));
    test.View().ScrollLineToTop(2000);
    const TextPos top = test.View().FirstVisibleChar();
    test.View().Select(2100, 0);
    test.Menus().Open(test.Menu().mBookmark);
    test.Menus().Click(test.Menu().mBookmarkNew);
    const std::u16string mark = test.Menu().mBookmarkList[0].tag;
    ChooseReading(test, u"Cyrillic (Windows 1251)");
    CHECK(Shown(test).starts_with(u"\u2018\u043A\u0490\u0438\u043C"));
    CHECK(test.View().FirstVisibleChar() == top);
    CHECK(test.Menu().mBookmarkList[0].tag == mark);
    CHECK(Offered(test).readings[static_cast<std::size_t>(Offered(test).reading)].name ==
          u"Cyrillic (Windows 1251)");
    test.Close();
    CHECK(test.DataFile().find("[Default\\/b/a.txt]\r\nCodePage=1251\r\n") != std::string::npos);
    TestForm next(test);
    REQUIRE(next.Start());
    CHECK(next.form.book.codePage == 1251);
    CHECK(Shown(next).starts_with(u"\u2018\u043A\u0490\u0438\u043C"));
    OpenBook(next.form, u"/b/other.txt");
    CHECK(Shown(next).starts_with(pangram));
    mFileList_Click(next.form, 1);
    ChooseReading(next, u"Cyrillic (DOS 866)");
    CHECK(Shown(next).starts_with(pangram));
    CHECK(next.View().FirstVisibleChar() == top);
}

TEST_CASE("chosen charset: Hebrew in visual order, with a bookmark that stays on its word") {
    std::string lines; // "Hello" and two letters, as they are seen
    for (int i = 0; i < 50; ++i)
        lines += "\xE1\xE0 \xED\xE5\xEC\xF9 " + std::to_string(100 + i) + "\r\n";
    const std::u16string word = u"\u05E9\u05DC\u05D5\u05DD", turned(word.rbegin(), word.rend());
    Reading test(lines);
    CHECK(test.form.book.codePage == visualIsoPage);
    const std::u16string logical = Shown(test);
    CHECK(logical.starts_with(u"100 " + word + u" \u05D0\u05D1\n101"));
    const auto place = static_cast<TextPos>(logical.find(word, 200));
    test.View().Select(place, static_cast<TextPos>(word.size()));
    test.Menus().Open(test.Menu().mBookmark);
    test.Menus().Click(test.Menu().mBookmarkNew);
    const std::u16string mark = test.Menu().mBookmarkList[0].tag;
    const auto marked = [&] {
        const auto found = ParseMark(test.Menu().mBookmarkList[0].tag);
        return test.View().TextRange(found->start, found->length);
    };
    CHECK(marked() == word);
    ChooseReading(test, u"Hebrew (Windows 1255)");
    CHECK(Shown(test).starts_with(u"\u05D1\u05D0 " + turned + u" 100\n"));
    CHECK(marked() == turned);
    ChooseReading(test, u"Hebrew, visual order (ISO 8859-8)");
    CHECK(Shown(test) == logical);
    CHECK(marked() == word);
    CHECK(test.Menu().mBookmarkList[0].tag == mark);
    test.Close();
    CHECK(test.DataFile().find("CodePage=28598\r\n") != std::string::npos);
    CHECK(test.Record(0)[Field::Charset] == u"177"); // which an older program goes by
}

TEST_CASE("chosen charset: what only the book's section can hold, and the book without it") {
    Reading test("\xC5\xE9\xEE\xE1\xE9"); // too short to tell
    const std::u16string before = Shown(test);
    ChooseReading(test, u"Japanese (EUC-JP)");
    const std::u16string chosen = Shown(test);
    CHECK(chosen != before);
    CHECK(test.form.format.font.charset == 128);
    test.Close();
    CHECK(test.Record(0)[Field::Charset] == u"128"); // which an older program goes by
    std::string file = test.DataFile();
    const std::string line = "CodePage=51932\r\n";
    REQUIRE(file.find(line) != std::string::npos);
    TestForm next(test);
    REQUIRE(next.Start());
    CHECK(Shown(next) == chosen);
    next.Close();
    file = next.DataFile();
    TestForm edited(next);
    edited.PutDataFile(file.erase(file.find(line), line.size()));
    REQUIRE(edited.Start());
    CHECK(edited.form.book.path == u"/b/a.txt");
    CHECK((edited.form.book.codePage == 932 || edited.form.book.codePage == 51932));
}

TEST_CASE("chosen charset: a page that is no page, or that nobody knows, is the guess") {
    for (const char* const value : {"866x", "12345", "-1", "", "x"}) {
        CAPTURE(value);
        TestForm test;
        test.PutBook(u"/b/a.txt", Lines(20));
        test.PutDataFile("[mProfileList]\r\n0=A\r\n[A\\mFileList]\r\n/b/a.txt=2026:01:01:01:01:01=0"
                         "=Serif=12=0=0=0=0=0=1=0=0=0=0=0==\r\n[A\\/b/a.txt]\r\nCodePage=" +
                         std::string(value) + "\r\n");
        REQUIRE(test.Start());
        CHECK(Shown(test).starts_with(pangram));
        CHECK(test.form.format.font.charset == 204);
    }
}

TEST_CASE("chosen charset: to Unicode and back, each place on its character") {
    Reading test("caf\xC3\xA9\r\nd\xC3\xA9j\xC3\xA0 vu\r\n");
    CHECK(Offered(test).readings[0].name == u"Unicode (UTF-8)");
    CHECK(Offered(test).readings[0].charset == -1);
    test.View().Select(8, 0); // after "déj"
    ChooseReading(test, u"Western (Windows 1252)");
    CHECK(Shown(test).starts_with(u"caf\u00C3\u00A9"));
    CHECK(test.View().SelStart() == 10);
    test.Close();
    TestForm next(test);
    REQUIRE(next.Start());
    CHECK(Shown(next).starts_with(u"caf\u00C3\u00A9"));
    next.View().Select(10, 0);
    ChooseReading(next, u"Unicode (UTF-8)");
    CHECK(Shown(next).starts_with(u"caf\u00E9"));
    CHECK(next.View().SelStart() == 8);
    CHECK(next.form.book.chosen.codePage == utf8Page);
}

TEST_CASE("chosen charset: the choice for a book off the list is not its neighbour's") {
    Reading test(Lines(20));
    test.PutBook(u"/b/other.txt", Lines(20));
    OpenBook(test.form, u"/b/other.txt");
    test.Menus().Open(test.Menu().mFile);
    test.Menus().Click(test.Menu().mFileRemoveList, 0);
    REQUIRE(test.Order() == std::vector<std::u16string>{u"/b/a.txt"});
    ChooseReading(test, u"Greek (Windows 1253)");
    CHECK_FALSE(Shown(test).starts_with(pangram));
    CHECK(test.DataFile().find("CodePage=1253") == std::string::npos);
}

TEST_CASE("chosen charset: half-width kana and full-width letters are as written, and found so") {
    // In Shift-JIS: half-width katakana, a full-width word, and kana of the usual width.
    Reading test(
        "\xB1\xB2\xB3\xB4 \x82\x60\x82\x81\x82\x82 \x82\xB1\x82\xF1\x82\xC9\x82\xBF\x82\xCD\r\n");
    if (test.form.book.codePage != 932) ChooseReading(test, u"Japanese (Shift-JIS)");
    CHECK(Shown(test) == u"\uFF71\uFF72\uFF73\uFF74 \uFF21\uFF41\uFF42 "
                         u"\u3053\u3093\u306B\u3061\u306F\n");
    CHECK(test.View().Find(u"\uFF73\uFF74", 0, {}) == 2);
    CHECK(test.View().Find(u"\uFF41\uFF22", 1, {}) == 6); // in either case
    CHECK(test.View().Find(u"\uFF41\uFF22", 1, {false, true}) == notFound);
    CHECK(test.View().Find(u"\u306B\u3061", 0, {}) == 11);
}
