// How large pictures of a page are, and where in their boxes they are drawn.
#include "tests/unit/page_sample.h"

#include <doctest/doctest.h>

namespace {
// Of a picture of 200 by 100 pixels: left, top, width, height.
std::string Drawn(const std::u16string& body, double width = 400) {
    PageSample page(body);
    page.text.pictureSize = [](const PageBox&) { return Size{200, 100}; };
    page.flow.SetWidth(width);
    std::string text;
    const auto add = [&](const auto& self, const PageFragment& fragment, double left,
                         double top) -> void {
        for (const PlacedImage& image : fragment.pictures)
            text += std::to_string(int(left + image.left)) + "," +
                    std::to_string(int(top + image.top)) + " " + std::to_string(int(image.width)) +
                    "x" + std::to_string(int(image.height));
        for (const PlacedPart& part : fragment.parts)
            self(self, *part.fragment, left + part.left, top + part.top);
    };
    add(add, *page.flow.LayOut(0), 0, 0);
    return text;
}
std::string Styled(const std::u16string& style, double width = 400) {
    return Drawn(u"<img style='display:block;" + style + u"'>", width);
}
} // namespace

TEST_CASE("picture size: limits keep the shape of a picture without a size") {
    CHECK(Styled(u"") == "0,0 200x100");
    CHECK(Styled(u"max-height:50px") == "0,0 100x50");
    CHECK(Styled(u"max-width:100%;max-height:80px", 100) == "0,0 100x50");
    CHECK(Styled(u"max-width:100%;max-height:20px", 100) == "0,0 40x20");
    CHECK(Styled(u"min-width:300px") == "0,0 300x150");
    CHECK(Styled(u"min-height:200px;max-width:100%", 300) == "0,0 300x200");
}

TEST_CASE("picture size: a given side decides about the other one") {
    CHECK(Styled(u"width:100px") == "0,0 100x50");
    CHECK(Styled(u"height:50px") == "0,0 100x50");
    CHECK(Styled(u"height:0").find("200x100") == std::string::npos);
    CHECK(Styled(u"height:200px;max-width:100%", 100) == "0,0 100x50");
    CHECK(Styled(u"width:60px;aspect-ratio:3/2") == "0,0 60x40");
    CHECK(Styled(u"width:60px;aspect-ratio:auto 3/2") == "0,0 60x30");
}

TEST_CASE("picture size: one that fits into its box keeps its shape, and nothing of it is cut") {
    CHECK(Styled(u"width:100px;height:100px") == "0,0 100x100");
    CHECK(Styled(u"width:100px;height:100px;object-fit:contain") == "0,25 100x50");
    CHECK(Styled(u"width:100px;height:100px;object-fit:cover") == "0,25 100x50");
    CHECK(Styled(u"width:300px;height:100px;object-fit:contain") == "50,0 200x100");
}

TEST_CASE(
    "picture size: a float goes by the picture in it, which may be narrower than its own width") {
    CHECK(Drawn(u"<div style='float:left'><img style='max-width:100%'></div>") == "0,0 200x100");
    CHECK(Drawn(u"<div style='float:left'><img style='max-width:100%'></div>", 100) ==
          "0,0 100x50");
}
