// What every HTML view must do with the pictures of a page: their sizes move what follows.
#include "tests/contract/html_view_contract.h"
#include "tests/picture_samples.h"

#include <cmath>

namespace {
constexpr const char* plain =
    "<style>body,p{margin:0}p{line-height:20px}img,svg,object{display:block}</style>";

std::string DataUrl(std::string_view kind, std::string_view base64) {
    return "data:image/" + std::string(kind) + ";base64," + std::string(base64);
}

int TopAfter(PageTest& test, const std::string& picture) {
    test.Open("<p>ab</p>" + picture + "<p>cd</p><div style='height:2000px'></div><p>ef", plain);
    test.view.ScrollSpanToTop({3, 2});
    test.Settle();
    return test.view.ScrollTop();
}

// In CSS pixels, by what it moves.
int HeightOf(PageTest& test, const std::string& picture) {
    return TopAfter(test, picture) - TopAfter(test, "");
}
} // namespace

TEST_CASE("html pictures: have the size of their files") {
    OnEachBackEnd([](PageTest& test) {
        struct {
            const char* kind;
            std::string_view base64;
            int height;
        } const cases[] = {
            {"png", pngPicture, 50},    {"jpeg", jpegPicture, 50}, {"jpeg", turnedJpeg, 8},
            {"gif", gifPicture, 50},    {"gif", movedGif, 60},     {"bmp", bmpPicture, 50},
            {"x-icon", icoPicture, 50},
        };
        for (const auto& c : cases) {
            CAPTURE(c.kind);
            CAPTURE(c.height);
            const std::string url = DataUrl(c.kind, c.base64);
            CHECK(std::abs(HeightOf(test, "<img src='" + url + "'>") - c.height) <= 2);
            CHECK(std::abs(HeightOf(test, "<object data='" + url + "'></object>") - c.height) <= 2);
        }
    });
}

TEST_CASE("html pictures: of files beside the page, and of what stands for them") {
    OnEachBackEnd([](PageTest& test) {
        test.Write("two.png", PictureBytesOf(pngPicture));
        CHECK(std::abs(HeightOf(test, "<img src='two.png'>") - 50) <= 2);
        CHECK(std::abs(HeightOf(test, "<img src='two.png' width=16>") - 100) <= 2);
        CHECK(std::abs(HeightOf(test, "<picture><source srcset='none.webp' media='print'>"
                                      "<img src='two.png'></picture>") -
                       50) <= 2);
        CHECK(std::abs(HeightOf(test, "<object data='two.png'><p>no</p></object>") - 50) <= 2);
        CHECK(std::abs(HeightOf(test, "<object data='none.png'><p style='height:30px'>no</p>"
                                      "</object>") -
                       30) <= 2);
    });
}
