#include "formats/html/html_frames.h"

#include "formats/html/html_reader.h"
#include "platform/none/none_clock.h"
#include "platform/none/none_files.h"
#include "tests/unit/page_pane_bench.h"

#include <doctest/doctest.h>

TEST_CASE("html frames: a page of frames becomes links to them") {
    const auto links = LinksOfFrames(
        ReadHtml(u"<head><title>A & B</title><base href=parts/></head><frameset cols=20%,*>"
                 u"<frame src=toc.htm title='The \"contents\"'><frameset rows=1,2>"
                 u"<frame src='a.htm?x&lt;' name=main><frame src=b.htm><frame name=empty>"
                 u"</frameset></frameset>"));
    CHECK(links == u"<!DOCTYPE html><title>A &amp; B</title><base href=\"parts/\"><body>"
                   u"<p><a href=\"toc.htm\">The \"contents\"</a></p>\n"
                   u"<p><a href=\"a.htm?x<\">main</a></p>\n"
                   u"<p><a href=\"b.htm\">b.htm</a></p>\n");
    CHECK_FALSE(LinksOfFrames(ReadHtml(u"<p>text")));
    CHECK_FALSE(LinksOfFrames(ReadHtml(u"")));
}

TEST_CASE("html frames: the view shows the links, which can be followed") {
    NoneClock clock;
    NoneFiles files(clock);
    files.AddFile(u"/book/index.htm", "<frameset><frame src=one.htm name=One>"
                                      "<frame src=two.htm name=Two></frameset>");
    PagePaneBench view(files);
    std::vector<std::u16string> paths;
    view.onLink = [&](const std::u16string&, const std::u16string& path) { paths.push_back(path); };
    const auto settle = [&] {
        for (int i = 0; i < 10; ++i)
            view.ProcessEvents();
    };
    view.Navigate(u"/book/index.htm", 1);
    settle();
    CHECK(view.Pane().Page()->Text() == u"One\nTwo");
    REQUIRE(view.Pane().FocusLink(true));
    REQUIRE(view.Pane().FocusLink(true));
    CHECK(view.Pane().FollowFocusedLink());
    settle();
    CHECK(paths == std::vector<std::u16string>{u"/book/two.htm"});
}
