// What a page must not do.
#include "tests/contract/windows_html_view_fixture.h"

#include "platform/windows/html_view/safety/addresses.h"

#include <mshtmdid.h>
#include <mshtmhst.h>
#include <urlmon.h>

TEST_CASE("windows html view: the engine is told to run, fetch and ask nothing") {
    ShownView shown;
    shown.Open(L"text");
    CHECK(shown.engine.silent);
    for (const long flag : {DLCTL_NO_SCRIPTS, DLCTL_NO_JAVA, DLCTL_NO_RUNACTIVEXCTLS,
                            DLCTL_NO_DLACTIVEXCTLS, DLCTL_NO_BEHAVIORS, DLCTL_NO_CLIENTPULL,
                            DLCTL_FORCEOFFLINE, DLCTL_SILENT, DLCTL_DLIMAGES})
        CHECK((shown.engine.downloadFlags & flag) == flag);
    for (const long flag : {DLCTL_BGSOUNDS, DLCTL_VIDEOS, DLCTL_NO_METACHARSET})
        CHECK((shown.engine.downloadFlags & flag) == 0);
    const DWORD look = DOCHOSTUIFLAG_NO3DBORDER | DOCHOSTUIFLAG_THEME;
    CHECK((shown.engine.hostFlags & look) == look);
    CHECK(shown.engine.policies[URLACTION_SCRIPT_RUN] == URLPOLICY_DISALLOW);
    CHECK(shown.engine.policies[URLACTION_ACTIVEX_RUN] == URLPOLICY_DISALLOW);
    CHECK(shown.engine.policies[URLACTION_HTML_META_REFRESH] == URLPOLICY_DISALLOW);
    CHECK(shown.engine.policies[URLACTION_HTML_FONT_DOWNLOAD] == URLPOLICY_ALLOW);
}

TEST_CASE("windows html view: a page goes nowhere by itself, and links are told") {
    ShownView shown;
    shown.view->Navigate(u"C:\\books\\a.htm", 1);
    CHECK(shown.engine.Follow(L"file:///C:/books/frame.htm", true));
    CHECK(shown.engine.Follow(L"about:blank", true));
    CHECK_FALSE(shown.engine.Follow(L"http://example.com/frame.htm", true));
    CHECK_FALSE(shown.engine.Follow(L"file://server/share/frame.htm", true));
    CHECK_FALSE(shown.engine.Follow(L"file:///C:/other/frame.htm", true));
    CHECK_FALSE(shown.engine.Follow(L"file:///C:/books/../other/frame.htm", true));
    CHECK_FALSE(shown.engine.Follow(L"file:///C:/books/b.htm")); // a redirection
    shown.engine.FinishLoading();
    HandlePostedMessages();
    CHECK(shown.links.empty());

    CHECK(shown.engine.Follow(L"file:///C:/books/a.htm#chapter"));
    CHECK(shown.engine.Follow(L"file:///c:/Books/A.htm#chapter"));
    CHECK_FALSE(shown.engine.Follow(L"file:///C:/books/a.htm"));
    CHECK_FALSE(shown.engine.Follow(L"file:///C:/books/b%20c.htm#x"));
    CHECK_FALSE(shown.engine.Follow(L"http://example.com/"));
    CHECK_FALSE(shown.engine.Follow(L"javascript:alert(1)"));
    CHECK_FALSE(shown.engine.Follow(L"file://server/share/d.htm"));
    CHECK_FALSE(shown.engine.Follow(L"file:///C:/books/frame.htm", true));
    CHECK_FALSE(shown.engine.FollowToNewWindow(L"file:///C:/books/e.htm"));
    CHECK_FALSE(shown.engine.Follow(L"http://example.com/send", false, true)); // a form: not told
    HandlePostedMessages();
    const std::vector<std::u16string> paths = {
        u"C:\\books\\a.htm",     u"C:\\books\\b c.htm", u"", u"", u"",
        u"C:\\books\\frame.htm", u"C:\\books\\e.htm"};
    REQUIRE(shown.links.size() == paths.size());
    for (std::size_t i = 0; i < paths.size(); ++i)
        CHECK(shown.links[i].second == paths[i]);
    CHECK(shown.links[2].first == u"http://example.com/");
}

TEST_CASE("windows html view: downloads and pages of errors are refused") {
    ShownView shown;
    shown.view->Navigate(u"C:\\books\\missing.htm", 1);
    CHECK_FALSE(shown.engine.Download());
    CHECK(shown.engine.Fail());
    shown.engine.FinishLoading();
    HandlePostedMessages();
    CHECK(shown.loaded.empty());
    CHECK_FALSE(shown.view->HasBody());
    CHECK(shown.engine.living == 0); // a text stands in its place
}

TEST_CASE("addresses: paths and addresses of files") {
    CHECK(UrlOfPath(L"C:\\a b\\50%#1.htm") == L"file:///C:/a%20b/50%25%231.htm");
    CHECK(UrlOfPath(L"\\\\server\\share\\a.htm") == L"file://server/share/a.htm");
    CHECK(UrlOfPath(L"a.htm") == L"");
    CHECK(UrlOfPath(L"") == L"");
    CHECK(UrlOfPath(L"C:\\" + std::wstring(5000, L'a')) == L"");
    CHECK(PathOfUrl(L"file:///C:/a%20b/50%25%231.htm#x") == L"C:\\a b\\50%#1.htm");
    CHECK(PathOfUrl(L"file://server/share/a.htm") == L"\\\\server\\share\\a.htm");
    CHECK(PathOfUrl(L"C:\\a.htm") == L"C:\\a.htm");
    for (const wchar_t* other : {L"", L"file:", L"http://a/b", L"about:blank", L"a.htm"}) {
        CAPTURE(Narrow(other));
        CHECK(PathOfUrl(other) == L"");
    }
}

TEST_CASE("addresses: what is within reach") {
    for (const wchar_t* here : {L"file:///C:/a.htm", L"C:\\a.htm", L"about:blank",
                                L"data:image/png;base64,AA", L"FILE:///c:/a.png"}) {
        CAPTURE(Narrow(here));
        CHECK(IsLocal(here, L""));
    }
    for (const wchar_t* away :
         {L"http://a/b.png", L"https://a/", L"ftp://a/", L"file://server/share/a.png",
          L"\\\\server\\share\\a.png", L"mk:@MSITStore:\\\\server\\a.chm::/a.htm", L"javascript:1",
          L"res://\\\\server\\a.dll/1", L"file:////server/share/a.png",
          L"file:///\\\\server\\share\\a.png", L"file:\\\\server\\share\\a.png", L""}) {
        CAPTURE(Narrow(away));
        CHECK_FALSE(IsLocal(away, L""));
    }
    CHECK(IsLocal(L"file://Server/share/a.png", L"server"));
    CHECK_FALSE(IsLocal(L"file://other/share/a.png", L"server"));
}
