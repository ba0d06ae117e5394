// What the headers of pictures say.
#include "formats/pictures/picture_header.h"
#include "tests/picture_samples.h"

#include <doctest/doctest.h>

TEST_CASE("picture header: format and size of each kind") {
    struct {
        std::string_view base64;
        PictureFormat format;
        int width, height;
        std::uint8_t orientation;
    } const cases[] = {
        {pngPicture, PictureFormat::Png, 8, 50, 1},  {jpegPicture, PictureFormat::Jpeg, 8, 50, 1},
        {turnedJpeg, PictureFormat::Jpeg, 8, 50, 6}, {gifPicture, PictureFormat::Gif, 8, 50, 1},
        {movedGif, PictureFormat::Gif, 20, 60, 1},   {webPPicture, PictureFormat::WebP, 8, 50, 1},
        {bmpPicture, PictureFormat::Bmp, 8, 50, 1},  {icoPicture, PictureFormat::Ico, 8, 50, 1},
    };
    for (const auto& c : cases) {
        CAPTURE(int(c.format));
        const std::string bytes = PictureBytesOf(c.base64);
        const PictureHeader header = ReadPictureHeader(bytes);
        CHECK(header.format == c.format);
        CHECK(header.width == c.width);
        CHECK(header.height == c.height);
        CHECK(header.orientation == c.orientation);
        for (std::size_t length = 0; length < bytes.size(); ++length) { // no byte after the end
            const std::string cut = bytes.substr(0, length);
            const PictureHeader part = ReadPictureHeader(std::string_view(cut));
            if (part.format != PictureFormat::Other) CHECK(part.width == c.width);
        }
    }
    CHECK(ReadPictureHeader(PictureBytesOf(turnedJpeg)).ShownWidth() == 50);
    CHECK(ReadPictureHeader(PictureBytesOf(turnedJpeg)).ShownHeight() == 8);
    CHECK(ReadPictureHeader(PictureBytesOf(movedGif)).frame == Rect{5, 4, 8, 50});
}

TEST_CASE("picture header: larger than memory should be given to") {
    std::string png = PictureBytesOf(pngPicture);
    png.replace(16, 8, std::string("\0\0\xEA\x60\0\0\xEA\x60", 8)); // 60,000 by 60,000
    CHECK(ReadPictureHeader(png).format == PictureFormat::Other);
    png.replace(16, 8, "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF");
    CHECK(ReadPictureHeader(png).format == PictureFormat::Other);
    png.replace(16, 8, std::string("\0\0\0\0\0\0\0\5", 8));
    CHECK(ReadPictureHeader(png).format == PictureFormat::Other);
    std::string gif = PictureBytesOf(gifPicture);
    gif.replace(6, 4, "\xFF\xFF\xFF\xFF");
    CHECK(ReadPictureHeader(gif).format == PictureFormat::Other);
    std::string bmp = PictureBytesOf(bmpPicture);
    bmp.replace(22, 4, std::string("\xCE\xFF\xFF\xFF", 4)); // -50: from above
    CHECK(ReadPictureHeader(bmp).height == 50);
    bmp.replace(22, 4, std::string("\0\0\0\x80", 4));
    CHECK(ReadPictureHeader(bmp).format == PictureFormat::Other);
}

TEST_CASE("picture header: of an icon the largest picture") {
    const std::string icon = LargestIcon(PictureBytesOf(icoPicture));
    CHECK(icon.substr(22) == PictureBytesOf(pngPicture));
    CHECK(ReadPictureHeader(icon).height == 50);
    CHECK(LargestIcon(PictureBytesOf(pngPicture)).empty());
    CHECK(LargestIcon("").empty());
    std::string withinItself = PictureBytesOf(icoPicture);
    withinItself.replace(6 + 16 + 12, 4, std::string(4, '\0'));
    CHECK(ReadPictureHeader(withinItself).height == 50);
}
