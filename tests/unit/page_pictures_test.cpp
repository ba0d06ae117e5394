// Which pictures of a page are read and drawn, and when.
#include "platform/none/none_canvas.h"
#include "platform/none/none_clock.h"
#include "platform/none/none_files.h"
#include "tests/picture_samples.h"
#include "view/html/page_pictures.h"

#include <doctest/doctest.h>

#include <map>
#include <set>

namespace {
constexpr char16_t path[] = u"/books/page.htm";

// Draws all, and remembers what it was given.
class FakeStore : public PictureStore {
  public:
    void Clear() override {}
    bool CanDecode(PictureFormat format) const override { return !cannot.contains(format); }
    Size NaturalSize(const Picture&) override { return {}; }
    bool IsKept(TextPos position, Size size) const override {
        const auto known = kept.find(position);
        return known != kept.end() && known->second == size;
    }
    bool Draw(Canvas&, const Picture& picture, const Rect& box) override {
        drawn.push_back(picture);
        kept[picture.position] = {box.width, box.height};
        return true;
    }

    std::set<PictureFormat> cannot;
    std::map<TextPos, Size> kept;
    std::vector<Picture> drawn;
};

class PicturesTest {
  public:
    explicit PicturesTest(const std::string& body)
        : page(path, "<!DOCTYPE html>" + body, 1252), pageFiles(files, page) {
        files.AddFile(u"/books/two.png", PictureBytesOf(pngPicture));
        files.AddFile(u"/books/two.ico", PictureBytesOf(icoPicture));
        files.AddFile(u"/books/draw.svg",
                      "<?xml version='1.0'?><svg xmlns='http://www.w3.org/2000/svg' width='30' "
                      "height='40'><rect/><script>no</script></svg>");
        for (HtmlNodeId id = 1; id <= page.Tree().NodeCount(); ++id)
            if (page.Tree()[id].Is(HtmlName::Img) || page.Tree()[id].Is(HtmlName::Object) ||
                page.Tree()[id].name == HtmlName::Svg)
                images.push_back(id);
    }
    Size SizeOf(std::size_t image) { return pictures.NaturalSize(images.at(image)); }
    bool Draw(std::size_t image, int side = 10) {
        return pictures.Draw(canvas, images.at(image), {0, 0, side, side});
    }

    NoneClock clock;
    NoneFiles files{clock};
    LoadedPage page;
    PageFiles pageFiles;
    FakeStore store;
    PagePictures pictures{page, pageFiles, store};
    NoneCanvas canvas;
    std::vector<HtmlNodeId> images;
};
} // namespace

TEST_CASE("page pictures: the size and the bytes of each kind") {
    PicturesTest test("<img src=two.png><img src=draw.svg><svg viewBox='0 0 7 9'><rect/></svg>"
                      "<img src=two.ico><img src='data:image/jpeg;base64," +
                      std::string(turnedJpeg) +
                      "'><img srcset='two.png 2x'><img src=none.png><img src=../two.png>");
    CHECK(test.SizeOf(0) == Size{8, 50});
    CHECK(test.SizeOf(1) == Size{30, 40});
    CHECK(test.SizeOf(2) == Size{7, 9});
    CHECK(test.SizeOf(3) == Size{8, 50});
    CHECK(test.SizeOf(4) == Size{50, 8});
    CHECK(test.SizeOf(5) == Size{8, 50});
    for (std::size_t i = 0; i < 6; ++i)
        CHECK(test.Draw(i));
    const auto& drawn = test.store.drawn;
    CHECK(drawn[0].bytes == PictureBytesOf(pngPicture));
    CHECK(drawn[1].bytes.find("<rect") != std::string::npos);
    CHECK(drawn[1].bytes.find("script") == std::string::npos);
    CHECK(drawn[2].bytes.find("viewBox=\"0 0 7 9\"") != std::string::npos);
    CHECK(drawn[3].bytes.size() < PictureBytesOf(icoPicture).size());
    CHECK(drawn[4].orientation == 6);
    for (std::size_t i = 6; i < 8; ++i) {
        CHECK(test.SizeOf(i).IsEmpty());
        CHECK_FALSE(test.Draw(i));
    }
}

TEST_CASE("page pictures: what the system cannot decode is not there") {
    PicturesTest test("<svg width=5 height=5></svg><object data=draw.svg></object>"
                      "<object data=two.png></object><object data=none.png></object>");
    test.store.cannot = {PictureFormat::Svg};
    CHECK(test.SizeOf(0).IsEmpty());
    CHECK_FALSE(test.Draw(0));
    CHECK_FALSE(test.pictures.ShowsObject(test.images[1]));
    CHECK(test.pictures.ShowsObject(test.images[2]));
    CHECK_FALSE(test.pictures.ShowsObject(test.images[3]));
    CHECK(test.store.drawn.empty());
}

TEST_CASE("page pictures: a frame decodes only so much, and the next ones the rest") {
    std::string large = PictureBytesOf(pngPicture);
    large.replace(16, 8, std::string("\0\0\x20\0\0\0\x20\0", 8)); // 8,192 by 8,192
    std::string body;
    for (int i = 0; i < 3; ++i)
        body += "<img src=large.png>";
    PicturesTest test(body);
    test.files.AddFile(u"/books/large.png", large);
    for (std::size_t frame = 1; frame <= 3; ++frame) {
        test.pictures.StartFrame();
        for (std::size_t i = 0; i < 3; ++i)
            CHECK(test.Draw(i)); // with its room left empty where it does not stand yet
        CHECK(test.store.kept.size() == frame);
        CHECK(test.pictures.ResetLeftOut() == (frame < 3));
    }
    CHECK_FALSE(test.pictures.AreLeftOut());
    CHECK(test.store.drawn[1].bytes.empty()); // it was kept

    PicturesTest onPaper(body);
    onPaper.files.AddFile(u"/books/large.png", large);
    for (std::size_t i = 0; i < 3; ++i)
        CHECK(onPaper.Draw(i));
    CHECK(onPaper.store.drawn.size() == 3);
}
