#include "html_form.h"

#include <doctest/doctest.h>

TEST_CASE("html links: they lead to other books, which become books of their own") {
    HtmlForm test;
    test.PutPage(u"/b/p.htm");
    test.PutPage(u"/b/two.html");
    test.PutBook(u"/b/notes.txt");
    test.PutBook(u"/b/map.png");
    REQUIRE(test.Start());
    test.OpenLoaded(u"/b/p.htm");
    test.Page().ScrollByHand(640);
    for (const char16_t* path : {u"", u"/b/map.png"}) {
        test.Page().onLink(u"x:y", path);
        CHECK(test.Order() == std::vector<std::u16string>{u"/b/p.htm"});
    }
    test.Page().onLink(u"file:///b/two.html", u"/b/two.html");
    CHECK(test.Page().navigations.back() == u"/b/two.html");
    CHECK(test.Record(0)[Field::Filter] == u"2");
    CHECK(test.Record(1)[Field::LastPos] == u"640");
    test.Page().FinishLoading();
    test.Page().ScrollByHand(320);
    test.Page().onLink(u"file:///b/p.htm", u"/b/p.htm"); // a book of the list by now
    CHECK(test.Record(1)[Field::LastPos] == u"320");
    test.Page().FinishLoading();
    CHECK(test.Page().ScrollTop() == 640);
    test.Page().onLink(u"file:///b/notes.txt", u"/b/notes.txt");
    CHECK(test.View().Visible());
    CHECK(test.Order().size() == 3);
}

TEST_CASE("html links: Alt+Left goes back, within the page and to the page before") {
    HtmlForm test;
    test.PutPage(u"/b/p.htm");
    test.PutPage(u"/b/two.html");
    REQUIRE(test.Start());
    test.OpenLoaded(u"/b/p.htm");
    test.Press(37, AltKey); // no link was followed
    CHECK(test.Page().ScrollTop() == 0);

    test.Page().onJump(100);
    test.Page().ScrollByHand(800);
    test.Page().onLink(u"file:///b/two.html", u"/b/two.html");
    test.Page().FinishLoading();
    test.Page().onJump(0);
    test.Page().ScrollByHand(320);
    test.Press(37, AltKey);
    CHECK(test.Page().ScrollTop() == 0);
    test.Press(37, 0); // a mere arrow
    CHECK(test.Page().navigations.back() == u"/b/two.html");
    test.Press(37, AltKey);
    CHECK(test.Page().navigations.back() == u"/b/p.htm");
    test.Page().FinishLoading();
    CHECK(test.Page().ScrollTop() == 800);
    test.Press(37, AltKey);
    CHECK(test.Page().ScrollTop() == 100);
    test.Press(37, AltKey);
    CHECK(test.Page().ScrollTop() == 100);
}

TEST_CASE("html links: a page opened from the menu has no way back") {
    HtmlForm test;
    test.PutPage(u"/b/p.htm");
    test.PutPage(u"/b/two.htm");
    REQUIRE(test.Start());
    test.OpenLoaded(u"/b/p.htm");
    test.Page().onJump(100);
    test.OpenLoaded(u"/b/two.htm");
    test.Press(37, AltKey);
    CHECK(test.Page().navigations.back() == u"/b/two.htm");
}

TEST_CASE(
    "html links: web and mail go out at once, other schemes after a question, scripts never") {
    HtmlForm test;
    test.PutPage(u"/b/p.htm");
    REQUIRE(test.Start());
    test.OpenLoaded(u"/b/p.htm");
    for (const char16_t* url :
         {u"https://x.example/a", u"http://x.example", u"mailto:a@x.example"}) {
        test.Page().onLink(url, u"");
        CHECK(test.Shell().opened.back() == url);
    }
    CHECK(test.Dialogs().messages.empty());
    const std::size_t opened = test.Shell().opened.size();

    test.Dialogs().messageAnswer = DialogResult::Cancel;
    test.Page().onLink(u"tel:+123", u"");
    REQUIRE(test.Dialogs().messages.size() == 1);
    CHECK(test.Dialogs().messages[0].text == u"This link leads to another program:\r\ntel:+123\r\n"
                                             u"Are you sure you wish to continue?");
    CHECK(test.Shell().opened.size() == opened);
    test.Dialogs().messageAnswer = DialogResult::Ok;
    test.Page().onLink(u"tel:+123", u"");
    CHECK(test.Shell().opened.back() == u"tel:+123");

    for (const char16_t* url :
         {u"javascript:alert(1)", u"JavaScript:x", u"data:text/html,x", u"vbscript:x",
          u"file://host/x", u"blob:x", u"about:blank", u"x", u"c:\\x.exe", u"tel:1 2"})
        test.Page().onLink(url, u"");
    CHECK(test.Dialogs().messages.size() == 2);
    CHECK(test.Shell().opened.size() == opened + 1);
}
