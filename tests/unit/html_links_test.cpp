#include "html_form.h"

#include <doctest/doctest.h>

TEST_CASE("html links: they lead to other books, which become books of their own") {
    HtmlForm test;
    test.PutPage(u"/b/p.htm");
    test.PutPage(u"/b/two.html");
    test.PutBook(u"/b/notes.txt");
    REQUIRE(test.Start());
    test.OpenLoaded(u"/b/p.htm");
    test.Page().ScrollByHand(640);
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

    test.Page().onJump({.offset = 100});
    test.Page().ScrollByHand(800);
    test.Page().onLink(u"file:///b/two.html", u"/b/two.html");
    test.Page().FinishLoading();
    test.Page().onJump({.offset = 0});
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
    test.Page().onJump({.offset = 100});
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
          u"file://host/x", u"blob:x", u"about:blank", u"x", u"c:\\x.exe", u"a b:1",
          u"Search-MS:query=x", u"shell:startup", u"ms-its:x", u"1tel:2"})
        test.Page().onLink(url, u"");
    CHECK(test.Dialogs().messages.size() == 2);
    CHECK(test.Shell().opened.size() == opened + 1);
}

TEST_CASE("html links: an address is handed on in plain characters, a mail with plain fields") {
    struct Case {
        const char16_t *url, *opened;
    };
    const Case table[] = {
        {u"http://x.example/it's", u"http://x.example/it%27s"},
        {u"http://x.example/\u00E4 b", u"http://x.example/%C3%A4%20b"},
        {u"http://x.example/a%20b?c=d&attach=e", u"http://x.example/a%20b?c=d&attach=e"},
        {u"mailto:o'brien@x.example", u"mailto:o%27brien@x.example"},
        {u"mailto:a@x.example?subject=b&attach=/etc/passwd", u"mailto:a@x.example?subject=b"},
        {u"MAILTO:a@x.example?Attachment=/c&Body=d&BCC=e&cc=f&to=g",
         u"mailto:a@x.example?Body=d&BCC=e&cc=f&to=g"},
        {u"mailto:?%61ttach=/c&%62ody=d", u"mailto:?%62ody=d"},
        {u"mailto:a@x.example?attach=/c", u"mailto:a@x.example"},
        {u"mailto:a@x.example?subject=b%0D%0Aattach:c&body=d%0D%0Ae",
         u"mailto:a@x.example?body=d%0D%0Ae"},
        {u"mailto:a%0Aattach:b", u"nothing"}, // without anybody to write to
        {u"mailto:a@x.example?&&=&subject", u"mailto:a@x.example?subject"},
        {u"mailto:a@x.example?body=50%", u"mailto:a@x.example?body=50%"},
        {u"mailto:a@x.example#?attach=b", u"mailto:a@x.example"},
    };
    HtmlForm test;
    test.PutPage(u"/b/p.htm");
    REQUIRE(test.Start());
    test.OpenLoaded(u"/b/p.htm");
    for (const Case& row : table) {
        test.Shell().opened = {u"nothing"};
        test.Page().onLink(row.url, u"");
        CHECK(test.Shell().opened.back() == row.opened);
    }
    CHECK(test.Dialogs().messages.empty());
}

TEST_CASE("html links: what is looked at or listened to goes to the desktop, after a question") {
    struct Case {
        const char16_t* path;
        std::string bytes;
        bool opens;
    };
    const std::string zeros(3, '\0');
    const Case table[] = {
        {u"/b/map.png", "\x89PNG\r\n\x1A\n", true},
        {u"/b/MAP.JPG", "\xFF\xD8\xFF\xE0", true},
        {u"/b/song.mp3", "ID3\x04", true},
        {u"/b/song.flac", "fLaC", true},
        {u"/b/sound.wav", "RIFF1234WAVEfmt ", true},
        {u"/b/film.mp4",
         zeros + "\x20"
                 "ftypisom",
         true},
        {u"/b/map.pdf", "%PDF-1.4", true},
        {u"/b/map.png", "#!/bin/sh\n", false},              // a script of this name
        {u"/b/map.jpg", "MZ\x90", false},                   // a program
        {u"/b/song.mp3", "[Desktop Entry]\nExec=x", false}, // which starts one
        {u"/b/song.desktop", "ID3\x04", false},
        {u"/b/map.png.exe", "\x89PNG\r\n\x1A\n", false},
        {u"/b/map.svg", "<svg>", false}, // may hold scripts
        {u"/b/run",
         "\x7F"
         "ELF",
         false},
        {u"/b/run.sh", "#!/bin/sh\n", false},
        {u"/b/archive.zip", "PK\x03\x04", false},
        {u"/b/map.png", "", false},
    };
    for (const Case& row : table) {
        HtmlForm test;
        test.PutPage(u"/b/p.htm");
        test.PutBook(row.path, row.bytes);
        REQUIRE(test.Start());
        test.OpenLoaded(u"/b/p.htm");
        test.Dialogs().messageAnswer = DialogResult::Cancel;
        test.Page().onLink(u"x:y", row.path);
        REQUIRE(test.Dialogs().messages.size() == 1);
        CHECK(test.Dialogs().messages[0].text.find(row.path) != std::u16string::npos);
        CHECK(test.Shell().openedFiles.empty());
        test.Dialogs().messageAnswer = DialogResult::Ok;
        test.Page().onLink(u"x:y", row.path);
        CHECK(test.Shell().openedFiles.size() == (row.opens ? 1 : 0));
        CHECK(test.Order() == std::vector<std::u16string>{u"/b/p.htm"});
        CHECK(test.Shell().started.empty());
    }
}

TEST_CASE("html links: a file that is not there is reported") {
    HtmlForm test;
    test.PutPage(u"/b/p.htm");
    REQUIRE(test.Start());
    test.OpenLoaded(u"/b/p.htm");
    test.Page().onLink(u"x:y", u"/b/none\u202Egnp.exe");
    REQUIRE(test.Dialogs().messages.size() == 1);
    CHECK(test.Dialogs().messages[0].text.starts_with(u"/b/nonegnp.exe\r\n"));
    CHECK(test.Shell().openedFiles.empty());
}

TEST_CASE("html titles: controls of direction turn neither the title nor the menus") {
    HtmlForm test;
    NonePage page = HtmlForm::LongPage();
    page.title = u"\u202Eevil\u202C \u2067\u05D0\u200F!\u2069";
    test.PutPage(u"/b/p\u202Emth.htm", page);
    REQUIRE(test.Start());
    test.OpenLoaded(u"/b/p\u202Emth.htm");
    CHECK(test.Window().title == u"Norvaset [Default] - evil \u05D0\u200F!");
    CHECK(test.Menu().mFileList[0].caption.ends_with(u"/b/pmth.htm\t= evil \u05D0\u200F!"));
    CHECK(test.Menu().mFileRemoveList[0].caption == u"/b/pmth.htm");
    CHECK(test.Order()[0] == u"/b/p\u202Emth.htm"); // the file is found under its own name
    CHECK(test.Record(0)[Field::Title].find(u'\u202E') != std::u16string::npos);
    test.Press('D', CtrlKey);
    CHECK(test.Menu().mBookmarkList[0].caption.find(u'\u202E') == std::u16string::npos);
}

TEST_CASE("html links: the way back is a hundred links long, the oldest are forgotten") {
    HtmlForm test;
    test.PutPage(u"/b/p.htm");
    REQUIRE(test.Start());
    test.OpenLoaded(u"/b/p.htm");
    for (int link = 1; link <= 102; ++link)
        test.Page().onJump({.offset = 10 * link});
    for (int back = 102; back > 2; --back) {
        test.Press(37, AltKey);
        CHECK(test.Page().ScrollTop() == 10 * back);
    }
    test.Press(37, AltKey);
    CHECK(test.Page().ScrollTop() == 30); // the first two are gone
}
