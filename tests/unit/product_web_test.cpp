// The web page, the feedback mail and the About box: what the version information makes of them.
#include "shell/update/product_web.h"

#include "common/web_address.h"
#include "shell/about.h"
#include "test_form.h"

#include <doctest/doctest.h>

namespace {
struct WithVersion : TestForm {
    WithVersion() {
        Version().version = {u"The Company",
                             u"Norvaset",
                             u"A reader. For books. In version 1.5",
                             u"https://web.example, mailto:us@web.example",
                             u"Copyright us",
                             u"Norvaset (TM)",
                             3,
                             12,
                             7};
        Start();
    }
};
} // namespace

TEST_CASE("product web: the web page") {
    WithVersion test;
    test.Menus().Click(test.Menu().mHelpWeb);
    CHECK(test.Shell().opened ==
          std::vector<std::u16string>{u"https://web.example/Products/Norvaset/"});
}

TEST_CASE("product web: the feedback mail has a subject") {
    WithVersion test;
    test.Menus().Click(test.Menu().mHelpMail);
    CHECK(test.Shell().opened ==
          std::vector<std::u16string>{u"mailto:us@web.example?subject=Norvaset%20Bug%20Report"});
}

TEST_CASE("product web: comments of one entry have a page and no mail") {
    WithVersion test;
    test.Version().version.comments = u"https://web.example";
    test.Menus().Click(test.Menu().mHelpMail);
    CHECK(test.Shell().opened.empty());
    test.Menus().Click(test.Menu().mHelpWeb);
    CHECK(test.Shell().opened ==
          std::vector<std::u16string>{u"https://web.example/Products/Norvaset/"});
}

TEST_CASE("product web: nothing but web and mail addresses reaches the desktop") {
    WithVersion test;
    for (const char16_t* comments :
         {u"", u"file:///etc, /bin/sh", u"C:\\a.exe, javascript:x", u"https://a b, mailto:a\"b"}) {
        test.Version().version.comments = comments;
        test.Menus().Click(test.Menu().mHelpWeb);
        test.Menus().Click(test.Menu().mHelpMail);
    }
    CHECK(test.Shell().opened.empty());
}

TEST_CASE("web address: which may be opened") {
    for (const char16_t* good : {u"https://a", u"HTTP://a/b?c=d&e#f", u"mailto:a@b?subject=c%20d"})
        CHECK(IsWebOrMailAddress(good));
    for (const char16_t* bad :
         {u"", u"https://", u"mailto:", u"https:/a", u"file:///a", u"ftp://a", u"a", u" https://a",
          u"https://a b", u"https://a\n", u"https://a\"", u"https://\u0430",
          u"javascript:https://a", u"https://a\\b", u"https://a|b", u"https://a\u007F"})
        CHECK_FALSE(IsWebOrMailAddress(bad));
}

TEST_CASE("web address: percent-encoding") {
    CHECK(PercentEncoded(u"aZ09-._~") == u"aZ09-._~");
    CHECK(PercentEncoded(u"a b&c%\u00E9\U0001D11E") == u"a%20b%26c%25%C3%A9%F0%9D%84%9E");
    CHECK(PercentEncoded(u"") == u"");
}

TEST_CASE("about: the lines of the box") {
    WithVersion test;
    const std::u16string wide(60, u' ');
    test.Menus().Click(test.Menu().mHelpAbout);
    REQUIRE(test.Dialogs().messages.size() == 1);
    const Message& message = test.Dialogs().messages[0];
    CHECK(message.title == u"About Norvaset (TM)");
    CHECK(message.icon == MessageIcon::Application);
    CHECK(message.text == u"A reader.\r\nFor books.\r\nIn version 1.5\r\nVersion 3.12.7\r\n" +
                              wide +
                              u"\r\nCopyright us\r\nhttps://web.example\r\nmailto:us@web.example");
    CHECK_FALSE(message.helpButton);
}

TEST_CASE("about: an extra line, and comments of one entry") {
    ProgramVersion version;
    version.comments = u"https://web.example";
    version.major = 3;
    const std::u16string wide(60, u' ');
    CHECK(AboutText(version) ==
          u"\r\nVersion 3.00\r\n" + wide + u"\r\n\r\nhttps://web.example\r\n");
    CHECK(AboutText(version, u"Extra") ==
          u"\r\nVersion 3.00\r\nExtra\r\n" + wide + u"\r\n\r\nhttps://web.example\r\n");
}
