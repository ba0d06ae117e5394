#include "test_form.h"

#include "common/text.h"

#include "app/open_book.h"
#include "common/find_text.h"

#include <doctest/doctest.h>

namespace {
struct Reading : TestForm {
    explicit Reading(std::string_view text) {
        PutBook(u"/b/a.txt", text);
        Start();
        OpenBook(form, u"/b/a.txt");
    }
    void Choose(MenuArray& command) {
        Menus().Open(Menu().mEdit);
        Menus().Click(command);
    }
    void Find(const std::u16string& text, bool wholeWord = false, bool matchCase = false) {
        Dialogs().findAnswer = {DialogResult::Ok, text, wholeWord, matchCase};
        Choose(Menu().mEditFind);
    }
    std::u16string Clip() { return static_cast<NoneClipboard&>(*form.ports.clipboard).text; }
};
} // namespace

TEST_CASE("find text: words, cases and ends") {
    struct Case {
        const char16_t *text, *what;
        std::size_t start;
        FindOptions options;
        std::size_t found;
    };
    constexpr auto none = std::u16string_view::npos;
    const Case table[] = {
        {u"one two one", u"one", 0, {}, 0},
        {u"one two one", u"one", 1, {}, 8},
        {u"one two one", u"one", 9, {}, none},
        {u"Stone one", u"one", 0, {true, false}, 6},
        {u"ONE", u"one", 0, {}, 0},
        {u"ONE one", u"one", 0, {false, true}, 4},
        {u"\u041C\u0438\u0440", u"\u043C\u0418\u0420", 0, {}, 0},
        {u"\u041C\u0438\u0440\u043D\u043E", u"\u043C\u0438\u0440", 0, {true, false}, none},
        {u"a.b", u".", 0, {true, false}, 1},
        {u"abc", u"", 0, {}, none},
        {u"", u"a", 0, {}, none},
        {u"abc", u"abcd", 0, {}, none},
        {u"abc", u"c", 3, {}, none},
        {u"abc", u"c", 99, {}, none},
        {u"aab", u"ab", 0, {}, 1},
        {u"x_one one", u"one", 0, {true, true}, 6},
    };
    for (const Case& test : table)
        CHECK(FindText(test.text, test.what, test.start, test.options) == test.found);
}

TEST_CASE("edit: what can be chosen follows text and selection") {
    Reading test("one two");
    test.Menus().Open(test.Menu().mEdit);
    CHECK(test.Menu().mEditAll[0].enabled);
    CHECK(test.Menu().mEditFind[0].enabled);
    CHECK_FALSE(test.Menu().mEditCopy[0].enabled);
    CHECK_FALSE(test.Menu().mEditCopyRTF[0].enabled);
    CHECK_FALSE(test.Menu().mEditTitle[0].enabled);
    CHECK_FALSE(test.Menu().mEditNext[0].enabled);
    for (const TextPos length : {1, 3}) {
        test.View().Select(0, length);
        test.Menus().Open(test.Menu().mEdit);
        CHECK(test.Menu().mEditCopy[0].enabled);
        CHECK(test.Menu().mEditCopyRTF[0].enabled);
        CHECK(test.Menu().mEditTitle[0].enabled);
    }
    Reading empty("");
    empty.Menus().Open(empty.Menu().mEdit);
    CHECK_FALSE(empty.Menu().mEditAll[0].enabled);
    CHECK_FALSE(empty.Menu().mEditFind[0].enabled);
    test.Find(u"two");
    test.Menus().Open(test.Menu().mEdit);
    CHECK(test.Menu().mEditNext[0].enabled);
}

TEST_CASE("edit: selects all") {
    Reading test("one two");
    test.Choose(test.Menu().mEditAll);
    CHECK(test.View().SelStart() == 0);
    CHECK(test.View().SelLength() == 7);
}

TEST_CASE("edit: copies the text, and its source as text") {
    Reading test("one two");
    test.View().Select(4, 3);
    test.Choose(test.Menu().mEditCopy);
    CHECK(test.Clip() == u"two");
    test.Choose(test.Menu().mEditCopyRTF);
    CHECK(test.Clip().starts_with(u"{\\rtf"));
    CHECK(test.Clip().find(u"two") != std::u16string::npos);
    CHECK(test.Clip().find(u"one") == std::u16string::npos);
}

TEST_CASE(
    "edit: a copy of text has no place for a picture, and tabs and breaks for what a table has") {
    Reading test("a\xEF\xBF\xBC b\vc\a");
    test.Choose(test.Menu().mEditAll);
    test.Choose(test.Menu().mEditCopy);
    CHECK(test.Clip() == u"a b\nc\t");
}

TEST_CASE("edit: every way to a copy is the one command, which follows the selection") {
    Reading test("one two");
    auto& clip = static_cast<NoneClipboard&>(*test.form.ports.clipboard).text;
    const std::function<void()> ways[] = {
        [&] { test.Window().Events().onKeyDown('C', CtrlKey); },
        [&] { test.Window().Events().onKeyDown(InsertKey, CtrlKey); },
        [&] { test.form.ports.textView->onCopy(); },
    };
    for (const auto& copy : ways) {
        clip = u"before";
        test.form.ports.textView->Select(0, 0);
        copy();
        CHECK(clip == u"before");
        test.form.ports.textView->Select(4, 3);
        copy();
        CHECK(clip == u"two");
    }
    clip = u"before";
    test.Window().Events().onKeyDown('C', CtrlKey | ShiftKey);
    test.Window().Events().onKeyDown(InsertKey, ShiftKey);
    CHECK(clip == u"before");
    CHECK(test.Menu().mEditCopy[0].caption == u"&Copy\tCtrl+C");
}

TEST_CASE("find: from the end of the selection, and around the end") {
    Reading test("one two one three one");
    test.Find(u"one");
    CHECK(test.View().SelStart() == 0);
    CHECK(test.View().SelLength() == 3);
    test.Choose(test.Menu().mEditNext);
    CHECK(test.View().SelStart() == 8);
    test.Choose(test.Menu().mEditNext);
    CHECK(test.View().SelStart() == 18);
    test.Choose(test.Menu().mEditNext);
    CHECK(test.View().SelStart() == 0);
    test.Find(u"nowhere");
    CHECK(test.Window().alerts == 1); // it is heard, and no message stands in the way
    CHECK(test.View().SelStart() == 0);
    CHECK(test.Dialogs().messages.empty());
}

TEST_CASE("find: shows the hourglass while it searches") {
    Reading test("one two one");
    test.Find(u"nowhere");
    CHECK(test.View().cursorsOfFinds == std::vector{CursorShape::Wait, CursorShape::Wait});
    CHECK(test.View().ShownCursor() == CursorShape::Default);
}

TEST_CASE("find: one given up leaves all as it was and does not begin anew at the start") {
    Reading test("one two one");
    test.View().Select(4, 3);
    test.View().whileFinding = [] {};
    test.Find(u"one");
    CHECK(test.View().cursorsOfFinds.size() == 1);
    CHECK(test.View().SelStart() == 4);
    CHECK(test.View().SelLength() == 3);
    test.View().whileFinding = nullptr;
    test.Choose(test.Menu().mEditNext);
    CHECK(test.View().SelStart() == 8);
}

TEST_CASE("find: the window may be closed while it searches") {
    Reading test("one two one");
    test.View().whileFinding = [&test] { test.Window().Events().onUnload(); };
    test.Find(u"one");
    CHECK(test.form.closed);
    CHECK(test.View().cursorsOfFinds.size() == 1);
}

TEST_CASE("find: next without a text asks for one, with the selection as its start") {
    Reading test("one two");
    test.View().Select(4, 3);
    test.Menus().Open(test.Menu().mEdit);
    CHECK_FALSE(test.Menu().mEditNext[0].enabled);
    test.Window().Events().onKeyDown(F3Key, 0);
    REQUIRE(test.Dialogs().findRequests.size() == 1);
    CHECK(test.Dialogs().findRequests[0].text == u"two");
    CHECK(test.Dialogs().findRequests[0].font.name == u"Plain");
    CHECK(test.Dialogs().findRequests[0].font.size == 8);
    CHECK(test.Dialogs().findRequests[0].title == u"Find");
}

TEST_CASE("find: in no text F3 asks for nothing") {
    Reading test("");
    test.Window().Events().onKeyDown(F3Key, 0);
    CHECK(test.Dialogs().findRequests.empty());
}

TEST_CASE("find: past searches are kept with the book, newest first, at most 20") {
    Reading test("text");
    for (int i = 0; i < 25; ++i)
        test.Find(u"word" + NumberText(i));
    test.Find(u"a|b & \u0416");
    test.Find(u"word24");
    CHECK(test.form.find.history.size() == 20);
    test.Close();
    TestForm next(test);
    REQUIRE(next.Start());
    REQUIRE(next.form.find.history.size() == 20);
    CHECK(next.form.find.history[0] == u"word24");
    CHECK(next.form.find.history[1] == u"a|b & \u0416");
    CHECK(next.form.find.history[2] == u"word23");
    CHECK(next.DataFile().find("[Default\\/b/a.txt]") != std::string::npos);
    CHECK(next.DataFile().find("HistFind=") != std::string::npos);
    next.PutBook(u"/b/other.txt");
    OpenBook(next.form, u"/b/other.txt");
    CHECK(next.form.find.history.empty());
}

TEST_CASE("find: a search in quotes comes back with them") {
    for (const char16_t* search : {u"\"he said\"", u"'tis'", u"&#34;"}) {
        Reading test("text");
        test.Find(search);
        test.Close();
        TestForm next(test);
        REQUIRE(next.Start());
        CHECK(next.form.find.history == std::vector<std::u16string>{search});
    }
}

TEST_CASE("find: a right-to-left charset on a view that counts mirrored") {
    Reading test("abc def");
    test.form.format.font.charset = 177;
    test.View().mirrorsRightToLeft = true;
    test.Find(u"def");
    CHECK(test.View().SelLength() == 3);
    CHECK(test.View().SelStart() == 0); // 4 mirrored, one before it, and never before the text
}

TEST_CASE("caption: encoded, and shown in list and title") {
    Reading test("x = \xD0\x9A\xF0\x9F\x93\x96 y");
    test.View().Select(0, 9);
    test.Choose(test.Menu().mEditTitle);
    CHECK(test.Record(0)[Field::Title] == u"x &#61; &#1050;&#55357;&#56534; y");
    CHECK(test.Menu().mFileList[0].caption.ends_with(u"\t= x = \u041A\U0001F4D6 y"));
    CHECK(test.Window().title == u"Norvaset [Default] - x = \u041A\U0001F4D6 y");
    test.Close();
    CHECK(test.DataFile().find("x &#61; &#1050;&#55357;&#56534; y=") != std::string::npos);
}

TEST_CASE("context menu: the commands that apply") {
    Reading test("one two");
    MenuTree& menu = test.Menu();
    const std::vector<MenuArray*> commands{
        &menu.mEditCopy,       &menu.mEditCopyRTF, &menu.mEditSeparator1, &menu.mEditAll,
        &menu.mEditSeparator2, &menu.mEditFind,    &menu.mEditNext,       &menu.mEditSeparator3,
        &menu.mEditTitle,      &menu.mBookmarkNew, &menu.mViewSeparator5, &menu.mViewColumn,
        &menu.mViewUnwrap};
    for (const TextPos selected : {3, 0}) {
        test.View().Select(4, selected);
        test.View().onContextMenu();
        CHECK((test.Menus().contextItems == commands));
        CHECK(menu.mEditCopy[0].enabled == (selected > 0));
        CHECK(menu.mEditTitle[0].enabled == (selected > 0));
        CHECK(menu.mEditFind[0].enabled);
        CHECK(menu.mBookmarkNew[0].enabled);
        CHECK(menu.mBookmarkNew[0].shown == u"Defi&ne Bookmark\tCtrl+D");
    }
    test.Menus().Open(menu.mBookmark); // there its name is what it always was
    CHECK(menu.mBookmarkNew[0].ShownCaption() == u"Defi&ne\tCtrl+D");
}

namespace {
// Says that this much is selected, and answers no question about it.
class VastSelection : public NoneTextView {
  public:
    TextPos SelLength() const override { return 1 << 30; }
    std::u16string TextRange(TextPos, TextPos length) const override {
        CHECK(length <= 4096);
        return u"caption";
    }
    std::string SelectionAsRtf() const override {
        FAIL("asked for a gigabyte");
        return {};
    }
};
} // namespace

TEST_CASE("edit: a vast selection is not copied, looked for or made a caption as a whole") {
    Reading test("text");
    test.form.ports.textView = std::make_unique<VastSelection>();
    test.Choose(test.Menu().mEditCopy);
    test.Choose(test.Menu().mEditCopyRTF);
    REQUIRE(test.Dialogs().messages.size() == 2);
    CHECK(test.Dialogs().messages[0].text ==
          u"The selection is too long to be copied:\r\nup to 128 million characters can be.");
    CHECK(test.Clip().empty());
    test.form.find.text = u"before";
    test.Dialogs().findAnswer = {};
    test.Choose(test.Menu().mEditFind);
    CHECK(test.form.find.text == u"before");
    test.Choose(test.Menu().mEditTitle);
    CHECK(test.Record(0)[Field::Title] == u"caption");
}
