// Drawings as they are handed to a renderer.
#include "formats/html/html_reader.h"
#include "formats/pictures/svg_limits.h"
#include "formats/pictures/svg_source.h"
#include "formats/pictures/svg_tree.h"

#include <doctest/doctest.h>

namespace {
std::string Drawing(std::string_view content, std::string_view attributes = "") {
    return "<svg " + std::string(attributes) +
           " xmlns='http://www.w3.org/2000/svg' "
           "xmlns:xlink='http://www.w3.org/1999/xlink'>" +
           std::string(content) + "</svg>";
}

bool Has(const std::string& text, std::string_view part) {
    return text.find(part) != text.npos;
}
} // namespace

TEST_CASE("svg: the size") {
    struct {
        std::string_view attributes;
        int width, height;
    } const cases[] = {
        {"width='20' height='30'", 20, 30},
        {"width='20px' height='1in'", 20, 96},
        {"width='2cm' height='10mm'", 76, 38},
        {"viewBox='0 0 40 80'", 40, 80},
        {"viewBox='0,0,40,80' width='20'", 20, 40},
        {"viewBox='0 0 40 80' height='20'", 10, 20},
        {"viewBox='0 0 40 80' width='100%' height='100%'", 40, 80},
        {"viewBox='0 0 0 80'", 300, 150},
        {"width='1e9' height='1'", maxSvgSide, 1},
        {"width='-5' height='nan'", 1, 150},
        {"", 300, 150},
    };
    for (const auto& c : cases) {
        CAPTURE(c.attributes);
        const SvgSize size = SizeOfSvg(Drawing("", c.attributes));
        CHECK(size.width == c.width);
        CHECK(size.height == c.height);
    }
    CHECK(SizeOfSvg("<html><svg></svg></html>").width == 0);
    CHECK(SizeOfSvg("svg").width == 0);
    CHECK(SizeOfSvg("\xEF\xBB\xBF<?xml version='1.0'?>\n<!-- by hand --><svg width='7' height='8'")
              .width == 0); // the tag is cut
    CHECK(SizeOfSvg("\xEF\xBB\xBF<?xml version='1.0'?>\n<!-- by hand --><svg width='7' height='8'>")
              .width == 7);
}

TEST_CASE("svg: shapes, texts, gradients and styles stay") {
    const std::string safe = SafeSvg(Drawing(
        "<defs><linearGradient id='g'><stop offset='0' stop-color='red'/></linearGradient></defs>"
        "<style>.a{fill:url(#g)}</style><g transform='scale(2)'><rect class='a' width='5' "
        "height='6'/></g><text x='3'>a &lt; b</text><use xlink:href='#g' x='4'/><symbol "
        "id='s'><path d='M0 0L1 1'/></symbol><use href='#s'/>",
        "viewBox='0 0 9 9'"));
    CHECK(Has(safe, "viewBox=\"0 0 9 9\""));
    CHECK(Has(safe, "<linearGradient id=\"g\"><stop offset=\"0\" stop-color=\"red\">"));
    CHECK(Has(safe, "<style>.a{fill:url(#g)}</style><g transform=\"scale(2)\">"));
    CHECK(Has(safe, "<text x=\"3\">a &lt; b</text>"));
    CHECK(Has(safe, "<use x=\"4\" xlink:href=\"#g\">"));
    CHECK(Has(safe, "<defs><g id=\"s\"><path d=\"M0 0L1 1\"></path></g></defs>"));
    CHECK(Has(safe, "<use xlink:href=\"#s\">"));
}

TEST_CASE("svg: what uses a part that is not there is left out") {
    const std::string safe =
        SafeSvg(Drawing("<g id='g'/><use href='#g'/><use href='#none'/><use/><use href='g'/>"));
    CHECK(Has(safe, "<use xlink:href=\"#g\">"));
    CHECK(safe.find("<use") == safe.rfind("<use"));
}

TEST_CASE("svg: nothing leads outside of the drawing") {
    const char* const contents[] = {
        "<image href='secret.png'/>",
        "<image xlink:href='file:///secret.png'/>",
        "<image href='data:image/svg+xml,&lt;svg>secret&lt;/svg>'/>",
        "<use href='other.svg#secret'/>",
        "<rect fill='url(secret.svg#a)'/>",
        "<rect style='fill:url( \"secret.svg#a\")'/>",
        "<rect style='fill:U\\52 L(secret.svg#a)'/>",
        "<style>@import 'secret.css';</style>",
        "<style>rect{fill:URL(secret.svg)}</style>",
        "<script>secret()</script>",
        "<foreignObject><p>secret</p></foreignObject>",
        "<rect onclick='secret()' filter='secret' data-secret='1'/>",
        "<animate attributeName='secret' dur='1s'/>",
        "<?xml-stylesheet type='text/css' href='secret.css'?>",
        "<a href='secret.htm'><rect/></a>",
        "<svg:image href='secret.png'/>",
    };
    for (const char* const content : contents) {
        CAPTURE(content);
        const std::string safe = SafeSvg(Drawing(content));
        CHECK(Has(safe, "<svg"));
        CHECK(!Has(safe, "secret"));
    }
    const std::string head = "<?xml version='1.0'?><?xml-stylesheet href='secret.css'?>"
                             "<!DOCTYPE svg SYSTEM 'secret.dtd' [<!ENTITY e SYSTEM 'secret'>]>";
    CHECK(!Has(SafeSvg(head + Drawing("<text>&e;</text>")), "secret"));
}

TEST_CASE("svg: a picture within it, of a usual size") {
    const std::string png = "iVBORw0KGgoAAAANSUhEUgAA";
    CHECK(Has(
        SafeSvg(Drawing("<image href='data:image/png;base64," + png + "AAgAAAAyCAIAAADwEUE8'/>")),
        "xlink:href=\"data:image/png"));
    CHECK(!Has(SafeSvg(Drawing("<image href='data:image/png;base64," + png +
                               "6mAAAOpgCAIAAADwEUE8'/>")), // 60,000 by 60,000
               "data:"));
}

TEST_CASE("svg: what repeats itself without end is not drawn") {
    std::string bomb = "<g id='n0'><rect/></g>";
    for (int i = 1; i < 12; ++i) {
        const std::string use = "<use href='#n" + std::to_string(i - 1) + "'/>";
        bomb.append("<g id='n").append(std::to_string(i)).append("'>");
        bomb.append(use).append(use).append(use).append(use).append("</g>");
    }
    CHECK(SafeSvg(Drawing(bomb)).empty());
    CHECK(SafeSvg(Drawing("<g id='a'><use href='#a'/></g>")).empty());
    CHECK(SafeSvg(Drawing("<g id='a'><use href='#b'/></g><g id='b'><use href='#a'/></g>")).empty());
    std::string chain = "<rect id='c0'/>";
    for (int i = 1; i < 100'000; ++i)
        chain += "<use id='c" + std::to_string(i) + "' href='#c" + std::to_string(i - 1) + "'/>";
    CHECK(SafeSvg(Drawing(chain)).empty());
    std::string many;
    for (std::uint64_t i = 0; i <= maxSvgShapes; ++i)
        many += "<path/>";
    CHECK(SafeSvg(Drawing(many)).empty());
    CHECK(SafeSvg(Drawing(std::string(maxSvgFileBytes, ' '))).empty());
}

TEST_CASE("svg: the text that stands for a drawing") {
    const HtmlTree tree = ReadHtml(u"<svg><title> A  map </title><style>.a{}</style><g><text>of "
                                   u"<tspan>the</tspan>\nland</text></g></svg>");
    CHECK(SvgText(tree, SvgRoot(tree)) == u"A map of the land");
}
