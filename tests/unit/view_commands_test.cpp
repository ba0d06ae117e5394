#include "test_form.h"

#include "app/keys.h"
#include "app/open_book.h"
#include "app/view_menu.h"
#include "reading/formatting.h"

#include <doctest/doctest.h>

namespace {
struct Reading : TestForm {
    explicit Reading(std::string_view text = NumberedLines(300)) {
        PutBook(u"/b/a.txt", text);
        Start();
        OpenBook(form, u"/b/a.txt");
    }
    void Choose(MenuArray& command, int index = 0) {
        Menus().Open(Menu().mView);
        Menus().Click(command, index);
    }
    std::size_t Writes() { return Files().replaceCalls.size(); }
};
} // namespace

TEST_CASE("view: cancelled or unchanged choices change and write nothing") {
    Reading test;
    const auto writes = test.Writes();
    const std::string before = test.DataFile();
    const ViewFont font = test.View().Font();
    const Color text = test.View().TextColor(), background = test.View().BackColor();
    const int applications = test.View().fontApplications;
    test.Choose(test.Menu().mViewFont); // confirmed as it was
    test.Dialogs().fontAnswer = FontAnswer{DialogResult::Cancel, {}, 5};
    test.Choose(test.Menu().mViewFont);
    test.Choose(test.Menu().mViewBackground);
    test.Dialogs().colorAnswer = {DialogResult::Ok, test.View().BackColor()};
    test.Choose(test.Menu().mViewBackground);
    test.Choose(test.Menu().mViewAlign, 0); // already checked
    CHECK(test.Writes() == writes);
    CHECK(test.DataFile() == before);
    CHECK(test.View().Font() == font);
    CHECK(test.View().TextColor() == text);
    CHECK(test.View().BackColor() == background);
    CHECK(test.View().ShownAlignment() == Alignment::Left);
    CHECK(test.View().fontApplications == applications);
    CHECK(test.Dialogs().fontRequests[0].title == u"Font...");
    CHECK(test.Dialogs().colorRequests[0].first == u"Background Color...");
}

TEST_CASE("view: font, colours, alignment, wrap and size are kept with their book") {
    Reading test;
    ViewFont font = test.form.format.font;
    font.name = u"Old Serif";
    font.bold = font.italic = font.strikethrough = true;
    font.charset = 204;
    test.Dialogs().fontAnswer = FontAnswer{DialogResult::Ok, font, 0x0000FF};
    test.Choose(test.Menu().mViewFont);
    test.Dialogs().colorAnswer = {DialogResult::Ok, 0x00FF00};
    test.Choose(test.Menu().mViewBackground);
    test.Choose(test.Menu().mViewAlign, 1);
    test.Choose(test.Menu().mViewWordWrap);
    test.Choose(test.Menu().mViewFontSize, 0);
    const BookRecord record = test.Record(0);
    CHECK(record[Field::FontName] == u"Old Serif");
    CHECK(record[Field::FontSize] == u"11");
    CHECK(record[Field::Bold] == u"1");
    CHECK(record[Field::Italic] == u"1");
    CHECK(record[Field::Underline] == u"0");
    CHECK(record[Field::Strikethru] == u"1");
    CHECK(record[Field::Charset] == u"204");
    CHECK(record[Field::ForeColor] == u"255");
    CHECK(record[Field::BackColor] == u"65280");
    CHECK(record[Field::Align] == u"1");
    CHECK(record[Field::Wrap] == u"0");
    test.Close();
    TestForm next(test);
    REQUIRE(next.Start());
    font.size = 11;
    CHECK(next.View().Font() == font);
    CHECK(next.View().TextColor() == 0x0000FF);
    CHECK(next.View().BackColor() == 0x00FF00);
    CHECK(next.View().RightMargin() == 491520);
    CHECK(next.View().ShownAlignment() == Alignment::Right);
}

TEST_CASE("view: the top line and the caret stay where they are") {
    Reading test;
    test.View().Select(400, 0);
    test.View().ScrollLineToTop(900);
    const TextPos top = test.View().FirstVisibleChar();
    test.Choose(test.Menu().mViewFontSize, 1);
    test.Choose(test.Menu().mViewAlign, 1);
    ApplyTextColor(test.View(), 7, false, Scrolling::Restore);
    CHECK(test.View().FirstVisibleChar() == top);
    CHECK(test.View().SelStart() == 400);
    CHECK(test.View().ShownCursor() == CursorShape::Default);
}

TEST_CASE("view: the colours of rich text are kept only when wanted") {
    Reading test;
    test.View().SetTextColor(1);
    ApplyTextColor(test.View(), 9, true, Scrolling::Leave);
    CHECK(test.View().AutoColor());
    CHECK(test.View().TextColor() == 1);
    ApplyTextColor(test.View(), 9, false, Scrolling::Leave);
    CHECK_FALSE(test.View().AutoColor());
    CHECK(test.View().TextColor() == 9);
}

TEST_CASE("view: a format that leaves the place alone does not ask for it") {
    Reading test;
    const int before = test.View().topQueries;
    ApplyTextColor(test.View(), 9, false, Scrolling::Leave);
    ApplyFont(test.View(), {}, Scrolling::Leave);
    CHECK(test.View().topQueries == before);
    ApplyFont(test.View(), {}, Scrolling::Restore);
    CHECK(test.View().topQueries == before + 1);
}

TEST_CASE("view: a caption in a script that a title bar may not show gives way to the path") {
    Reading test;
    test.View().Select(0, 6);
    test.Menus().Open(test.Menu().mEdit);
    test.Menus().Click(test.Menu().mEditTitle);
    CHECK(test.Window().title == u"Norvaset [Default] - line 0");
    ViewFont font = test.form.format.font;
    font.charset = 204;
    test.Dialogs().fontAnswer = FontAnswer{DialogResult::Ok, font, 0};
    test.Choose(test.Menu().mViewFont);
    CHECK(test.Window().title == u"Norvaset [Default] - /b/a.txt");
}

TEST_CASE("view: a right-to-left charset applies the alignment again") {
    Reading test;
    ViewFont font = test.form.format.font;
    for (const int charset : {177, 178}) {
        test.View().SetAlignment(Alignment::Justified); // so that applying it again is seen
        font.charset = charset;
        test.Dialogs().fontAnswer = FontAnswer{DialogResult::Ok, font, 0};
        test.Choose(test.Menu().mViewFont);
        CHECK(test.View().ShownAlignment() == Alignment::Left);
    }
    test.View().SetAlignment(Alignment::Justified);
    font.size = 20; // staying on one does not
    test.Dialogs().fontAnswer = FontAnswer{DialogResult::Ok, font, 0};
    test.Choose(test.Menu().mViewFont);
    CHECK(test.View().ShownAlignment() == Alignment::Justified);
}

TEST_CASE("view: the font size stays within what a font can be") {
    Reading test;
    for (int i = 0; i < 30; ++i)
        test.Choose(test.Menu().mViewFontSize, 1);
    CHECK(test.form.format.font.size == 1);
    test.form.format.font.size = 1638;
    test.Choose(test.Menu().mViewFontSize, 0);
    CHECK(test.form.format.font.size == 1638);
}

TEST_CASE("view: refresh reads the file again and keeps the place") {
    Reading test;
    test.View().ScrollLineToTop(900);
    const TextPos top = test.View().FirstVisibleChar();
    test.PutBook(u"/b/a.txt", NumberedLines(400));
    test.Choose(test.Menu().mViewRefresh);
    CHECK(test.View().TextLength() > 2590);
    CHECK(test.View().FirstVisibleChar() == top);
    test.Files().Remove(u"/b/a.txt");
    test.Choose(test.Menu().mViewRefresh);
    CHECK(test.Dialogs().messages.back().text == u"/b/a.txt\r\nfile not found.");
    CHECK(test.View().TextLength() > 2590);
    CHECK(test.Menu().mFileList[0].checked);
    CHECK_FALSE(test.Menu().mFileList[0].enabled);
}

TEST_CASE("view: refresh finds the books of a stick that was away at the start") {
    TestForm test;
    test.PutDataFile("[mProfileList]\r\n0=A\r\n[A\\mFileList]\r\n/s/a.txt==0\r\n/s/b.txt==0\r\n");
    REQUIRE(test.Start());
    const auto refresh = [&] {
        test.Menus().Open(test.Menu().mView);
        CHECK(test.Menu().mViewRefresh[0].enabled);
        test.Menus().Click(test.Menu().mViewRefresh);
    };
    refresh();
    CHECK(test.Dialogs().messages.empty());
    CHECK(test.Window().title == u"Norvaset [A]");
    test.PutBook(u"/s/b.txt", "second");
    refresh();
    CHECK(test.Menu().mFileList[1].enabled);
    CHECK(test.Window().title == u"Norvaset [A]");
    test.PutBook(u"/s/a.txt", "first");
    refresh();
    CHECK(test.Window().title == u"Norvaset [A] - /s/a.txt");
    TestForm empty;
    REQUIRE(empty.Start());
    empty.Menus().Open(empty.Menu().mView);
    CHECK_FALSE(empty.Menu().mViewRefresh[0].enabled);
    const int loads = empty.View().loads;
    mViewRefresh_Click(empty.form, 0); // of a menu that still stood open
    CHECK(empty.View().loads == loads);
    CHECK(empty.Dialogs().messages.empty());
}

TEST_CASE("charset: another script leaves alone what is no bookmark") {
    TestForm test;
    std::string text;
    for (int i = 0; i < 200; ++i)
        text += "\xCF\xF0\xE8\xE2\xE5\xF2 " + std::to_string(i) + "\r\n";
    test.PutBook(u"/b/a.txt", text);
    test.PutDataFile("[mProfileList]\r\n0=A\r\n[A\\mFileList]\r\n/b/a.txt=2026:1:1:1:1:1=0"
                     "=Serif=12=204=0=0=0=0=1=0=0=16777215=0=9==x|500,5\r\n");
    REQUIRE(test.Start());
    ViewFont font = test.form.format.font;
    font.charset = 161;
    test.Dialogs().fontAnswer = FontAnswer{DialogResult::Ok, font, 0};
    test.Menus().Open(test.Menu().mView);
    test.Menus().Click(test.Menu().mViewFont);
    CHECK(test.View().TextRange(0, 2) == u"\u039F\u03C0");
    CHECK(test.Menu().mBookmarkList[0].tag == u"x");
    CHECK(test.Menu().mBookmarkList[1].tag == u"500,5");
}

TEST_CASE("charset: wrong letters are put right by the script chosen, and the place stays") {
    std::string text;
    for (int i = 0; i < 200; ++i)
        text += "\xCF\xF0\xE8\xE2\xE5\xF2 " + std::to_string(i) + "\r\n";
    Reading test(text);
    test.View().ScrollLineToTop(900);
    const TextPos top = test.View().FirstVisibleChar();
    CHECK(test.View().TextRange(top, 6) == u"\u041F\u0440\u0438\u0432\u0435\u0442");
    CHECK(test.form.format.font.charset == 204); // which the font dialog shows
    ViewFont font = test.form.format.font;
    font.charset = 161;
    test.Dialogs().fontAnswer = FontAnswer{DialogResult::Ok, font, 0};
    test.Choose(test.Menu().mViewFont);
    CHECK(test.View().FirstVisibleChar() == top);
    CHECK(test.View().TextRange(top, 2) == u"\u039F\u03C0");
    test.Menus().Open(test.Menu().mView);
    test.Choose(test.Menu().mViewRefresh);
    CHECK(test.View().TextRange(top, 2) == u"\u039F\u03C0"); // the choice holds against the guess
    font.charset = 204;
    test.Dialogs().fontAnswer = FontAnswer{DialogResult::Ok, font, 0};
    test.Choose(test.Menu().mViewFont);
    CHECK(test.View().FirstVisibleChar() == top);
    CHECK(test.View().TextRange(top, 6) == u"\u041F\u0440\u0438\u0432\u0435\u0442");
    CHECK(test.Record(0)[Field::Charset] == u"204");
    test.Close();
    TestForm next(test);
    REQUIRE(next.Start());
    CHECK(next.View().TextRange(top, 6) == u"\u041F\u0440\u0438\u0432\u0435\u0442");
}

TEST_CASE("charset: a book in Unicode is not touched") {
    Reading test("\xD0\x9F\xD1\x80\xD0\xB8");
    const int loads = test.View().loads;
    ViewFont font = test.form.format.font;
    font.charset = 204;
    test.Dialogs().fontAnswer = FontAnswer{DialogResult::Ok, font, 0};
    test.Choose(test.Menu().mViewFont);
    CHECK(test.View().loads == loads);
    CHECK(test.View().TextRange(0, 9) == u"\u041F\u0440\u0438");
}

TEST_CASE("keys: font size on key up, shortcuts on key down, Alt+F2 without a position") {
    Reading test;
    const auto up = [&](int key, int shift) { test.Window().Events().onKeyUp(key, shift); };
    const auto down = [&](int key, int shift) { test.Window().Events().onKeyDown(key, shift); };
    up(PlusKey, CtrlKey);
    up(107, CtrlKey);
    CHECK(test.form.format.font.size == 12);
    up(MinusKey, CtrlKey);
    up(109, CtrlKey);
    up(48, CtrlKey); // Ctrl+0 does nothing here
    down(PlusKey, CtrlKey);
    CHECK(test.form.format.font.size == 10);
    up(113, AltKey);
    CHECK(test.View().SelStart() == 0);
    test.Window().Events().onZoom(2);
    CHECK(test.form.format.font.size == 12);
    down('A', CtrlKey);
    CHECK(test.View().SelLength() == test.View().TextLength());
    CHECK(test.Menu().mEditAll[0].caption == u"Select &All\tCtrl+A");
    CHECK(test.Menu().mEditNext[0].caption == u"Find &Next\tF3");
    down(115, AltKey);
    CHECK(test.Window().closed);
}

TEST_CASE("view: texts stand in a column, each profile until it says otherwise") {
    TestForm test;
    test.PutDataFile("[mProfileList]\r\n0=A\r\n1=B\r\n");
    test.PutBook(u"/b/a.txt");
    REQUIRE(test.Start());
    OpenBook(test.form, u"/b/a.txt");
    CHECK(test.View().MaxLineLength() == 75);
    CHECK(test.DataFile().find("mViewColumn") == std::string::npos);
    Form_KeyDown(test.form, 'M', CtrlKey | ShiftKey);
    CHECK(test.View().MaxLineLength() == 0);
    CHECK(test.DataFile().find("[A]") < test.DataFile().find("mViewColumn=0"));
    test.Menus().Click(test.Menu().mProfileList, 1);
    CHECK(test.View().MaxLineLength() == 75);
    test.Menus().Click(test.Menu().mProfileList, 1);
    CHECK(test.View().MaxLineLength() == 0);
    CHECK_FALSE(test.Menu().mViewColumn[0].checked);
    test.Close();
    TestForm next(test);
    REQUIRE(next.Start());
    CHECK(next.View().MaxLineLength() == 0);
    next.View().onContextMenu();
    next.Menus().Click(next.Menu().mViewColumn, 0);
    CHECK(next.View().MaxLineLength() == 75);
    CHECK(next.Menu().mViewColumn[0].checked);
    CHECK(next.DataFile().find("mViewColumn=1") != std::string::npos);
}

TEST_CASE("view: broken lines of a plain text flow on, each book as it was left") {
    TestForm test;
    test.PutBook(u"/b/a.txt");
    test.PutBook(u"/b/b.txt");
    test.PutBook(u"/b/c.rtf", "{\\rtf1 rich}");
    REQUIRE(test.Start());
    Form_KeyDown(test.form, 'U', CtrlKey | ShiftKey); // without a book
    CHECK_FALSE(test.View().Unwrapped());
    OpenBook(test.form, u"/b/a.txt");
    Form_KeyDown(test.form, 'U', CtrlKey | ShiftKey);
    CHECK(test.View().Unwrapped());
    CHECK(test.DataFile().find("[Default\\/b/a.txt]\r\nUnwrap=1") != std::string::npos);
    OpenBook(test.form, u"/b/b.txt");
    CHECK_FALSE(test.View().Unwrapped());
    CHECK_FALSE(test.Menu().mViewUnwrap[0].checked);
    OpenBook(test.form, u"/b/c.rtf");
    test.View().onContextMenu();
    CHECK_FALSE(test.Menu().mViewUnwrap[0].enabled);
    Form_KeyDown(test.form, 'U', CtrlKey | ShiftKey);
    CHECK_FALSE(test.View().Unwrapped());
    OpenBook(test.form, u"/b/a.txt");
    CHECK(test.View().Unwrapped());
    CHECK(test.Menu().mViewUnwrap[0].checked);
    test.Close();
    TestForm next(test);
    REQUIRE(next.Start());
    CHECK(next.View().Unwrapped());
    next.View().onContextMenu();
    next.Menus().Click(next.Menu().mViewUnwrap, 0);
    CHECK_FALSE(next.View().Unwrapped());
    CHECK(next.DataFile().find("Unwrap=0") != std::string::npos);
}

TEST_CASE("view: where lines do not wrap there is no column and nothing to unwrap") {
    Reading test;
    test.Choose(test.Menu().mViewWordWrap);
    test.View().onContextMenu();
    CHECK_FALSE(test.Menu().mViewColumn[0].enabled);
    CHECK_FALSE(test.Menu().mViewUnwrap[0].enabled);
    Form_KeyDown(test.form, 'M', CtrlKey | ShiftKey);
    CHECK(test.Menu().mViewColumn[0].checked);
}
