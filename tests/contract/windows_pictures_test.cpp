// Pictures as the system's imaging component decodes and GDI draws them.
#include "formats/pictures/picture_header.h"
#include "platform/windows/line_layout/win_canvas.h"
#include "platform/windows/line_layout/win_pictures.h"
#include "tests/picture_samples.h"
#include "tests/unit/metafile_samples.h"

#include <doctest/doctest.h>
#include <objbase.h>

namespace {

// Two pixels beside each other: red, and blue that is transparent.
constexpr std::string_view redAndNothing =
    "89504e470d0a1a0a0000000d4948445200000002000000010806000000f4"
    "227f8a0000000d4944415478da63f8cfc00046000efa02fe2a405eb90000"
    "000049454e44ae426082";
// Declares 20,000 by 20,000 pixels.
constexpr std::string_view hugePng = "89504e470d0a1a0a0000000d4948445200004e2000004e200806000000e3"
                                     "7046390000000d4944415478da63f8cfc00046000efa02fe2a405eb90000"
                                     "000049454e44ae426082";
// 8 by 16 pixels, green.
constexpr std::string_view greenJpeg =
    "ffd8ffe000104a46494600010100000100010000ffdb0043000d090a0b0a"
    "080d0b0a0b0e0e0d0f13201513121213271c1e17202e2931302e292d2c33"
    "3a4a3e333646372c2d405741464c4e525352323e5a615a50604a51524fff"
    "db0043010e0e0e131113261515264f352d354f4f4f4f4f4f4f4f4f4f4f4f"
    "4f4f4f4f4f4f4f4f4f4f4f4f4f4f4f4f4f4f4f4f4f4f4f4f4f4f4f4f4f4f"
    "4f4f4f4f4f4f4f4fffc00011080010000803011100021101031101ffc400"
    "1500010100000000000000000000000000000004ffc40014100100000000"
    "000000000000000000000000ffc400150101010000000000000000000000"
    "0000000006ffc40014110100000000000000000000000000000000ffda00"
    "0c03010002110311003f00b91e8201ffd9";

std::string FromHex(std::string_view digits) {
    std::string bytes;
    for (; digits.size() >= 2; digits.remove_prefix(2))
        bytes += static_cast<char>(std::stoi(std::string(digits.substr(0, 2)), nullptr, 16));
    return bytes;
}

Picture PictureOf(std::string_view digits, PictureFormat format, TextPos position = 0) {
    Picture picture;
    picture.position = position;
    picture.format = format;
    picture.bytes = FromHex(digits);
    return picture;
}

class Apartment { // of COM, which the program has for its drops
  public:
    Apartment() : initialized_(SUCCEEDED(CoInitialize(nullptr))) {}
    ~Apartment() {
        if (initialized_) CoUninitialize();
    }

  private:
    bool initialized_;
};

constexpr Color white = 0xFFFFFF, red = 0x0000FF;

// 64 pixels square, white.
class Surface {
  public:
    Surface() : context_(CreateCompatibleDC(nullptr)), canvas(context_) {
        const HDC screen = GetDC(nullptr);
        bitmap_ = CreateCompatibleBitmap(screen, 64, 64);
        ReleaseDC(nullptr, screen);
        original_ = SelectObject(context_, bitmap_);
        canvas.FillRect({0, 0, 64, 64}, white);
    }
    ~Surface() {
        SelectObject(context_, original_);
        DeleteObject(bitmap_);
        DeleteDC(context_);
    }
    Color At(int x, int y) const { return GetPixel(context_, x, y); }
    int Count(Color color) const {
        int count = 0;
        for (int y = 0; y < 64; ++y)
            for (int x = 0; x < 64; ++x)
                count += At(x, y) == color;
        return count;
    }

  private:
    HDC context_;
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ original_ = nullptr;

  public:
    WinCanvas canvas;
};

} // namespace

TEST_CASE("Windows pictures: the natural size is that of the file") {
    const Apartment apartment;
    WinPictures pictures;
    CHECK(pictures.NaturalSize(PictureOf(redAndNothing, PictureFormat::Png)) == Size{2, 1});
    CHECK(pictures.NaturalSize(PictureOf(greenJpeg, PictureFormat::Jpeg, 5)) == Size{8, 16});
    pictures.Clear();
    CHECK(pictures.NaturalSize(PictureOf(greenJpeg, PictureFormat::Jpeg)) == Size{8, 16});
}

TEST_CASE("Windows pictures: drawn as large as the box, and nothing where they are transparent") {
    const Apartment apartment;
    WinPictures pictures;
    Surface surface;
    const Picture picture = PictureOf(redAndNothing, PictureFormat::Png);
    for (const int width : {40, 20}) { // the second one again
        surface.canvas.FillRect({0, 0, 64, 64}, white);
        CHECK(pictures.Draw(surface.canvas, picture, {10, 10, width, 20}));
        CHECK(surface.At(11, 11) == red);
        CHECK(surface.At(11, 28) == red);
        CHECK(surface.At(10 + width - 1, 11) == white);
        CHECK(surface.At(9, 11) == white);
        CHECK(surface.At(11, 30) == white);
    }
    CHECK(
        pictures.Draw(surface.canvas, PictureOf(greenJpeg, PictureFormat::Jpeg, 5), {0, 0, 5, 5}));
    CHECK((surface.At(2, 2) & 0xFF00) > 0xE000);
    CHECK((surface.At(2, 2) & 0xFF) < 0x20);
}

TEST_CASE("Windows pictures: two larger than the screen are both kept") {
    const Apartment apartment;
    WinPictures pictures;
    Surface surface;
    const Picture one = PictureOf(redAndNothing, PictureFormat::Png, 1),
                  other = PictureOf(greenJpeg, PictureFormat::Jpeg, 2);
    const Rect box = {0, 0, 5000, 4000}; // 80 MB as pixels, of which the window shows few
    CHECK(pictures.Draw(surface.canvas, one, box));
    CHECK(surface.At(63, 63) == red);
    CHECK(pictures.IsKept(1, {5000, 4000}));
    CHECK(pictures.Draw(surface.canvas, other, box));
    CHECK((surface.At(2, 2) & 0xFF00) > 0xE000);
    CHECK(pictures.IsKept(1, {5000, 4000}));
    CHECK(pictures.IsKept(2, {5000, 4000}));
}

TEST_CASE("Windows pictures: what is no picture, or too large a one, is not drawn") {
    const Apartment apartment;
    WinPictures pictures;
    Surface surface;
    const std::string_view half = redAndNothing.substr(0, 60);
    const Picture none[] = {PictureOf(redAndNothing, PictureFormat::Other, 1),
                            PictureOf(redAndNothing, PictureFormat::Jpeg, 2),
                            PictureOf(greenJpeg, PictureFormat::Png, 3),
                            PictureOf(hugePng, PictureFormat::Png, 4),
                            PictureOf("", PictureFormat::Png, 5),
                            PictureOf("00112233", PictureFormat::Jpeg, 6)};
    for (const Picture& picture : none) {
        CAPTURE(picture.position);
        CHECK(pictures.NaturalSize(picture).IsEmpty());
        CHECK_FALSE(pictures.Draw(surface.canvas, picture, {0, 0, 20, 20}));
        CHECK_FALSE(pictures.Draw(surface.canvas, picture, {0, 0, 30, 20}));
    }
    pictures.Draw(surface.canvas, PictureOf(half, PictureFormat::Png, 7), {0, 0, 20, 20});
    CHECK_FALSE(pictures.Draw(surface.canvas, PictureOf(redAndNothing, PictureFormat::Png, 8),
                              {0, 0, 0, 20}));
    CHECK_FALSE(pictures.Draw(surface.canvas, PictureOf(redAndNothing, PictureFormat::Png, 9),
                              {0, 0, 1 << 20, 1 << 20}));
    CHECK(surface.At(1, 1) == white);
}

TEST_CASE("Windows pictures: a metafile is drawn in its place and size, from our own reading") {
    WinPictures pictures;
    Surface surface;
    const std::string window =
        WmfRecord(0x020B, Words({0, 0})) + WmfRecord(0x020C, Words({100, 100}));
    const std::string noPen =
        WmfRecord(0x02FA, Words({5, 0, 0, 0, 0})) + WmfRecord(0x012D, Words({0}));
    const std::string redBrush =
        WmfRecord(0x02FC, Words({0}) + Longs({red}) + Words({0})) + WmfRecord(0x012D, Words({1}));
    const std::string box = WmfRecord(0x041B, Words({50, 50, 0, 0}));
    Picture picture;
    picture.format = PictureFormat::Wmf;
    picture.bytes = Wmf(window + noPen + redBrush + box);
    CHECK(pictures.NaturalSize(picture).IsEmpty()); // its size is the document's
    CHECK(pictures.Draw(surface.canvas, picture, {4, 4, 40, 40}));
    CHECK(std::abs(surface.Count(red) - 20 * 20) < 50);
    CHECK(surface.At(6, 6) == red);
    CHECK(surface.At(40, 40) == white);

    picture.position = 1;
    picture.format = PictureFormat::Emf;
    picture.bytes =
        Emf(EmfRecord(37, Longs({0x80000008})) + EmfRecord(39, Longs({1, 0, 0xFF0000, 0})) +
            EmfRecord(37, Longs({1})) + EmfRecord(43, Longs({0, 0, 100, 50})));
    CHECK(pictures.Draw(surface.canvas, picture, {4, 4, 40, 40}));
    CHECK(std::abs(surface.Count(0xFF0000) - 40 * 20) < 80);
    picture.position = 2;
    picture.bytes = "no metafile at all";
    CHECK_FALSE(pictures.Draw(surface.canvas, picture, {0, 0, 40, 40}));
}

TEST_CASE("Windows pictures: the letters and lines of a metafile are drawn") {
    WinPictures pictures;
    Surface surface;
    Picture picture;
    picture.format = PictureFormat::Wmf;
    const std::string window =
        WmfRecord(0x020B, Words({0, 0})) + WmfRecord(0x020C, Words({100, 100}));
    const std::string cross = WmfRecord(0x0325, Words({2, 0, 50, 100, 50})); // a line
    picture.bytes = Wmf(window + cross);
    CHECK(pictures.Draw(surface.canvas, picture, {0, 0, 64, 64}));
    CHECK(surface.Count(0x000000) >= 60);
    CHECK(surface.At(2, 2) == white);
}

TEST_CASE("Windows pictures: each format of pages, upright and in its place") {
    const Apartment apartment;
    struct {
        std::string_view base64;
        PictureFormat format;
        std::uint8_t orientation;
        Size size;
        int redX, redY, blueX, blueY;
    } const cases[] = {
        {pngPicture, PictureFormat::Png, 1, {8, 50}, 4, 5, 4, 45},
        {jpegPicture, PictureFormat::Jpeg, 1, {8, 50}, 4, 5, 4, 45},
        {turnedJpeg, PictureFormat::Jpeg, 6, {50, 8}, 45, 4, 5, 4},
        {turnedJpeg, PictureFormat::Jpeg, 8, {50, 8}, 5, 4, 45, 4},
        {jpegPicture, PictureFormat::Jpeg, 3, {8, 50}, 4, 45, 4, 5},
        {gifPicture, PictureFormat::Gif, 1, {8, 50}, 4, 5, 4, 45},
        {movedGif, PictureFormat::Gif, 1, {20, 60}, 9, 9, 9, 49},
        {bmpPicture, PictureFormat::Bmp, 1, {8, 50}, 4, 5, 4, 45},
        {icoPicture, PictureFormat::Ico, 1, {8, 50}, 4, 5, 4, 45},
    };
    const auto part = [](Color color, int index) { return color >> 8 * index & 0xFF; };
    for (const auto& c : cases) {
        CAPTURE(static_cast<int>(c.format));
        CAPTURE(static_cast<int>(c.orientation));
        WinPictures pictures;
        Surface surface;
        REQUIRE(pictures.CanDecode(c.format));
        Picture picture;
        picture.format = c.format;
        picture.orientation = c.orientation;
        picture.bytes = PictureBytesOf(c.base64);
        if (c.format == PictureFormat::Ico) picture.bytes = LargestIcon(picture.bytes);
        CHECK(pictures.Draw(surface.canvas, picture, {0, 0, c.size.width, c.size.height}));
        const Color shownRed = surface.At(c.redX, c.redY), blue = surface.At(c.blueX, c.blueY);
        CHECK((part(shownRed, 0) > 200 && part(shownRed, 1) < 60 && part(shownRed, 2) < 60));
        CHECK((part(blue, 2) > 200 && part(blue, 1) < 60 && part(blue, 0) < 60));
        picture.bytes.clear(); // what is kept needs none
        CHECK(pictures.IsKept(0, c.size));
        CHECK(pictures.Draw(surface.canvas, picture, {0, 0, c.size.width, c.size.height}));
    }
    WinPictures pictures;
    CHECK_FALSE(pictures.CanDecode(PictureFormat::Svg));
    CHECK_FALSE(pictures.CanDecode(PictureFormat::Other));
}
