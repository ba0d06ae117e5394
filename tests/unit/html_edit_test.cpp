// Copy, find and caption of a page.
#include "html_form.h"

#include <doctest/doctest.h>

namespace {
struct Reading : HtmlForm {
    Reading() {
        PutPage(u"/b/p.htm");
        Start();
        OpenLoaded(u"/b/p.htm");
    }
};
} // namespace

TEST_CASE("html edit: what can be chosen follows body, text and selection") {
    struct Case {
        bool hasBody, hasText;
        TextPos selected;
        bool all, copy;
    };
    for (const Case& row : {Case{false, true, 0, false, false}, Case{true, false, 0, false, false},
                            Case{true, true, 0, true, false}, Case{true, true, 1, true, true},
                            Case{true, true, 3, true, true}}) {
        HtmlForm test;
        NonePage page;
        page.hasBody = row.hasBody;
        page.text = row.hasText ? u"some text" : u"";
        test.PutPage(u"/b/p.htm", page);
        REQUIRE(test.Start());
        test.OpenLoaded(u"/b/p.htm");
        test.Page().Select({0, row.selected});
        test.form.find.text = u"x";
        MenuTree& menu = test.Menu();
        test.Menus().Open(menu.mEdit);
        CHECK(menu.mEditCopyRTF[0].caption == u"C&opy as HTML");
        for (const MenuArray* item : {&menu.mEditAll, &menu.mEditFind, &menu.mEditNext})
            CHECK((*item)[0].enabled == row.all);
        for (const MenuArray* item : {&menu.mEditCopy, &menu.mEditCopyRTF, &menu.mEditTitle})
            CHECK((*item)[0].enabled == row.copy);
        CHECK(test.Page().questions == 0); // an opening menu waits for nothing
    }
}

TEST_CASE("html edit: the caption is that of RTF again in a text") {
    Reading test;
    test.PutBook(u"/b/a.txt");
    OpenBook(test.form, u"/b/a.txt");
    test.Menus().Open(test.Menu().mEdit);
    CHECK(test.Menu().mEditCopyRTF[0].caption == u"C&opy as RTF");
}

TEST_CASE("html copy: the text, or the source as text") {
    Reading test;
    test.Page().Select({5, 8});
    test.Choose(test.Menu().mEdit, test.Menu().mEditCopy);
    CHECK(test.Clip() == u"0\nline 1");
    test.Choose(test.Menu().mEdit, test.Menu().mEditCopyRTF);
    CHECK(test.Clip() == u"<p>0\nline 1</p>");
}

TEST_CASE("html find: the text selected is offered, else the one before") {
    Reading test;
    test.form.find.text = u"before";
    test.Dialogs().findAnswer.result = DialogResult::Cancel;
    test.Choose(test.Menu().mEdit, test.Menu().mEditFind);
    test.Page().Select({0, 4});
    test.Choose(test.Menu().mEdit, test.Menu().mEditFind);
    REQUIRE(test.Dialogs().findRequests.size() == 2);
    CHECK(test.Dialogs().findRequests[0].text == u"before");
    CHECK(test.Dialogs().findRequests[1].text == u"line");
    CHECK(test.Dialogs().findRequests[1].font.size == 8);
}

TEST_CASE("html find: a selection longer than anybody looks for is not offered, nor asked for") {
    HtmlForm test;
    NonePage page;
    page.text = std::u16string(100'000, u'a');
    test.PutPage(u"/b/p.htm", page);
    REQUIRE(test.Start());
    test.OpenLoaded(u"/b/p.htm");
    test.form.find.text = u"before";
    test.Page().Select({0, 65'537});
    const int questions = test.Page().questions;
    test.Dialogs().findAnswer.result = DialogResult::Cancel;
    test.Choose(test.Menu().mEdit, test.Menu().mEditFind);
    CHECK(test.Dialogs().findRequests.back().text == u"before");
    CHECK(test.Page().questions == questions);
    test.Page().Select({0, 65'536});
    test.Choose(test.Menu().mEdit, test.Menu().mEditFind);
    CHECK(test.Dialogs().findRequests.back().text == std::u16string(65'536, u'a'));
}

TEST_CASE("html find: F3 with nothing to find yet asks for it") {
    Reading test;
    test.Dialogs().findAnswer = {DialogResult::Ok, u"line 100", false, false};
    test.Press(F3Key, 0);
    CHECK(test.Dialogs().findRequests.size() == 1);
    CHECK(test.Page().Selection().span.length == 8);
}

TEST_CASE("html find: forward from the selection, shown, and not around the end") {
    Reading test;
    const std::u16string text = HtmlForm::LongPage().text;
    test.Find(u"LINE 29");
    const auto first = static_cast<TextPos>(text.find(u"line 29\n"));
    CHECK(test.Page().Selection().span == PageSpan{first, 7});
    // Across and down by what lies between the place searched from and the match.
    CHECK(test.Page().scrolls.back() == std::pair(NoneHtmlView::Margin, 29 * 16));
    test.Press(114, 0);
    const auto second = static_cast<TextPos>(text.find(u"line 290"));
    CHECK(test.Page().Selection().span == PageSpan{second, 7});
    const int top = test.Page().Selection().top;
    CHECK(top >= 0);
    CHECK(top + NoneHtmlView::LineHeight <= test.Page().ViewHeight());
    for (int i = 0; i < 9; ++i)
        test.Press(114, 0);
    const PageSpan last = test.Page().Selection().span;
    CHECK(last.start == static_cast<TextPos>(text.find(u"line 299")));
    const auto scrolls = test.Page().scrolls.size();
    test.Press(114, 0);
    CHECK(test.Page().Selection().span == last);
    CHECK(test.Page().scrolls.size() == scrolls);
    CHECK(test.Dialogs().messages.empty());
    CHECK(test.form.find.history == std::vector<std::u16string>{u"LINE 29"});
}

TEST_CASE("html find: on a page in visual order, what is typed in logical order is found") {
    const auto found = [](const std::string& charset, const std::u16string& what) {
        HtmlForm test;
        NonePage page;
        page.charset = charset;
        page.text = u"לארשי מולש (1948) abc";
        test.PutPage(u"/b/p.htm", page);
        REQUIRE(test.Start());
        test.OpenLoaded(u"/b/p.htm");
        test.Find(what);
        return test.Page().SelectedText();
    };
    CHECK(found("ISO-8859-8", u"שלומ") == u"מולש");
    CHECK(found("iso-8859-8", u"שלומ ישראל") == u"לארשי מולש");
    CHECK(found("ISO-8859-8", u"ישראל שלומ").empty());
    CHECK(found("ISO-8859-8", u"(1948) שלומ") == u"מולש (1948)");
    CHECK(found("ISO-8859-8", u"מולש") == u"מולש"); // as it was copied from the page
    CHECK(found("ISO-8859-8", u"ABC") == u"abc");
    CHECK(found("windows-1255", u"שלומ").empty());
    CHECK(found("ISO-8859-8-I", u"שלומ").empty());
}

TEST_CASE("html find: the history belongs to the book, the search goes on in the next") {
    Reading test;
    test.Dialogs().findAnswer = {DialogResult::Ok, u"LINE 2", false, true};
    test.Choose(test.Menu().mEdit, test.Menu().mEditFind);
    CHECK(test.Page().Selection().span.length == 0); // not in this case
    test.Dialogs().findAnswer = {DialogResult::Ok, u"line 2", true, false};
    test.Choose(test.Menu().mEdit, test.Menu().mEditFind);
    CHECK(test.Page().Selection().span.length == 6);
    test.Press(114, 0);
    CHECK(test.Page().Selection().span.start ==
          static_cast<TextPos>(HtmlForm::LongPage().text.find(u"line 2\n")));
    test.Close();
    HtmlForm next(test);
    next.PutPage(u"/b/p.htm");
    REQUIRE(next.Start());
    CHECK(next.form.find.history == std::vector<std::u16string>{u"line 2", u"LINE 2"});
    next.Page().FinishLoading();
    next.PutPage(u"/b/q.htm");
    next.form.find.text = u"line 2";
    next.OpenLoaded(u"/b/q.htm");
    CHECK(next.form.find.history.empty());
    next.Press(F3Key, 0);
    CHECK(next.Page().Selection().span.length == 6);
}

TEST_CASE("html caption: the selection in references, trimmed, on one line") {
    HtmlForm test;
    NonePage page;
    page.text = u" \u041A = \U0001F4D6\nb \nrest";
    page.charset = "windows-1251";
    test.PutPage(u"/b/p.htm", page);
    REQUIRE(test.Start());
    test.OpenLoaded(u"/b/p.htm");
    test.Page().Select({0, 10});
    test.Choose(test.Menu().mEdit, test.Menu().mEditTitle);
    CHECK(test.Record(0)[Field::Title] == u"&#1050; &#61; &#55357;&#56534; b");
    CHECK(test.Menu().mFileList[0].caption.ends_with(u"\t= \u041A = \U0001F4D6 b"));
    CHECK(test.DataFile().find("&#1050; &#61; &#55357;&#56534; b=") != std::string::npos);
    test.Page().Select({0, 1}); // blanks alone are no caption
    test.Choose(test.Menu().mEdit, test.Menu().mEditTitle);
    CHECK(test.Record(0)[Field::Title] == u"&#1050; &#61; &#55357;&#56534; b");
}

TEST_CASE("html caption: of a whole book only its beginning") {
    Reading test;
    NonePage page;
    page.text = u"\u041A" + std::u16string(5000, u'a') + u"end";
    test.PutPage(u"/b/q.htm", page);
    test.OpenLoaded(u"/b/q.htm");
    test.Page().SelectAll();
    test.Choose(test.Menu().mEdit, test.Menu().mEditTitle);
    CHECK(test.Record(0)[Field::Title] == u"&#1050;" + std::u16string(4095, u'a'));
}
