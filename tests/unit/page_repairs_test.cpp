// Pages whose text would not be seen without a script, or would all be in one place.
#include "platform/none/none_clock.h"
#include "platform/none/none_files.h"
#include "tests/unit/page_pane_bench.h"
#include "tests/unit/page_sample.h"
#include "view/page/page_repairs.h"

#include <doctest/doctest.h>

namespace {
// The lines that are painted, as "top text|top text".
std::string Painted(const std::string& body) {
    NoneClock clock;
    NoneFiles files{clock};
    files.AddFile(u"/books/page.htm", "<!DOCTYPE html><style>body,p{margin:0}</style>" + body);
    PagePaneBench view{files};
    view.Navigate(u"/books/page.htm", 1);
    for (int i = 0; i < 10; ++i)
        view.ProcessEvents();
    std::string lines;
    for (const NoneDrawing& drawing : view.Painted()) {
        if (drawing.kind != NoneDrawing::Kind::Text) continue;
        lines += lines.empty() ? "" : "|";
        lines += std::to_string(drawing.baseline) + " ";
        lines.append(drawing.text.begin(), drawing.text.end());
    }
    return lines;
}
} // namespace

TEST_CASE("page repairs: what is hidden until a script runs is shown if it is most of the page") {
    const std::string texts = "<p>one<div class=x><p>two two<p>three</div><script>four</script>";
    CHECK(Painted("<style>.x{display:none}</style>" + texts) == "13 one|29 two two|45 three");
    CHECK(Painted("<div hidden>" + texts) == "13 one|29 two two|45 three");
    CHECK(Painted("<style>body{display:none}</style>" + texts) == "13 one|29 two two|45 three");
    // A menu that opens, a note for print: what a page hides of its text stays hidden.
    CHECK(Painted("<style>.x{display:none}</style><p>some words that are seen" + texts) ==
          "13 some words that are seen|29 one");
}

TEST_CASE("page repairs: text that is nearly all positioned stands one below the other") {
    std::string lines;
    for (const char* line : {"one", "two", "three"})
        lines += std::string("<p style='position:absolute;top:9px;left:20px'>") + line;
    CHECK(Painted("<div style='position:relative;height:30px'>" + lines) ==
          "13 one|29 two|45 three");
    // The number of a page in the margin stays beside its line.
    CHECK(Painted("<p>some words<b style='position:absolute;left:100px'>12</b>") ==
          "13 some words|13 12");
}

TEST_CASE("page repairs: a wide positioned box between blocks is above what it would cover") {
    const std::string words = "<p>some words of a page",
                      wide = "<div style='position:absolute;width:70%;left:",
                      narrow = "<div style='position:absolute;left:";
    CHECK(Painted(words + wide + "40px'>box</div>" + words) ==
          "13 some words of a page|45 some words of a page|29 box");
    CHECK(Painted(words + wide + "40px'>box</div>" + wide + "50px'>other</div>" + words) ==
          "13 some words of a page|61 some words of a page|29 box|45 other");
    // The number of a page, in its margin and in its text.
    CHECK(Painted("<div style='margin-left:80px'>" + words + narrow + "4px'>12</div>" + words) ==
          "13 some words of a page|29 some words of a page|29 12");
    CHECK(Painted(words + narrow + "90px'>12</div>" + words) ==
          "13 some words of a page|29 some words of a page|29 12");
}

TEST_CASE("page repairs: what is counted is read by somebody") {
    const auto shares = [](const std::u16string& body) {
        const PageSample page(body);
        const PageTextShares counted = TextSharesOf(page.tree, page.styles);
        return std::vector<std::size_t>{counted.all, counted.hidden, counted.positioned};
    };
    using Shares = std::vector<std::size_t>;
    CHECK(shares(u"<p>one<p> \n <p>two") == Shares{6, 0, 0});
    CHECK(shares(u"<script>one</script><style>p{}</style><select><option>x</select>y") ==
          Shares{1, 0, 0});
    CHECK(shares(u"<p style='position:absolute'>one<i>two</i></p>three") == Shares{11, 0, 6});
    CHECK(shares(u"<p style='visibility:hidden'>one</p>two") == Shares{6, 3, 0});
    CHECK(shares(u"<p style='display:none'>one<i style='position:absolute'>two</i></p>three") ==
          Shares{11, 6, 0});
}

TEST_CASE("page repairs: what is cut off to a point for screen readers is over no other text") {
    const std::string clipped =
        "position:absolute;width:1px;height:1px;overflow:hidden;clip:rect(0,0,0,0)";
    CHECK(Painted("<a href=x style='" + clipped + "'>to the text</a><p>the text of the page") ==
          "13 the text of the page");
    CHECK(Painted("<p>words<span style='" + clipped + "'>note</span> of the page") ==
          "13 words of the page");
}

TEST_CASE("page repairs: text that would hang out of the page for a picture behind it is shown") {
    CHECK(PageSample(u"<h1 style='margin:0;font-size:16px;text-indent:-9999px'>Title</h1>")
              .Lines(400) == "0,0 Title");
    CHECK(PageSample(u"<p style='margin:0 0 0 40px;text-indent:-40px'>x").Lines(400) == "0,0 x");
}
