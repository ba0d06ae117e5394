// The pictures of pages as Qt's image formats decode them.
#include "formats/pictures/picture_header.h"
#include "formats/pictures/svg_source.h"
#include "platform/qt/text_view/line_layout/qt_canvas.h"
#include "platform/qt/text_view/pictures/qt_pictures.h"
#include "tests/picture_samples.h"

#include <doctest/doctest.h>

#include <QImage>
#include <QPainter>

namespace {
Picture Sample(std::string_view base64, PictureFormat format, std::uint8_t orientation = 1) {
    Picture picture;
    picture.format = format;
    picture.bytes = PictureBytesOf(base64);
    picture.orientation = orientation;
    return picture;
}

// Drawn as large as it is, on white; null if it was not.
QImage Drawn(QtPictures& pictures, const Picture& picture, QSize size) {
    QImage page(size, QImage::Format_RGB32);
    page.fill(Qt::white);
    QPainter painter(&page);
    QtCanvas canvas(painter);
    const bool drawn = pictures.Draw(canvas, picture, {0, 0, size.width(), size.height()});
    return drawn ? page : QImage();
}

bool IsReddish(QColor color) {
    return color.red() > 200 && color.green() < 60 && color.blue() < 60;
}
bool IsBluish(QColor color) {
    return color.blue() > 200 && color.green() < 60 && color.red() < 60;
}
} // namespace

TEST_CASE("qt pictures: each format of pages, upright and in its place") {
    struct {
        Picture picture;
        QSize size;
        QPoint red, blue;
    } const cases[] = {
        {Sample(pngPicture, PictureFormat::Png), {8, 50}, {4, 5}, {4, 45}},
        {Sample(jpegPicture, PictureFormat::Jpeg), {8, 50}, {4, 5}, {4, 45}},
        {Sample(turnedJpeg, PictureFormat::Jpeg, 6), {50, 8}, {45, 4}, {5, 4}},
        {Sample(gifPicture, PictureFormat::Gif), {8, 50}, {4, 5}, {4, 45}},
        {Sample(movedGif, PictureFormat::Gif), {20, 60}, {9, 9}, {9, 49}},
        {Sample(webPPicture, PictureFormat::WebP), {8, 50}, {4, 5}, {4, 45}},
        {Sample(bmpPicture, PictureFormat::Bmp), {8, 50}, {4, 5}, {4, 45}},
        {Sample(icoPicture, PictureFormat::Ico), {8, 50}, {4, 5}, {4, 45}},
    };
    for (const auto& c : cases) {
        CAPTURE(int(c.picture.format));
        QtPictures pictures;
        REQUIRE(pictures.CanDecode(c.picture.format));
        Picture picture = c.picture;
        if (picture.format == PictureFormat::Ico) picture.bytes = LargestIcon(picture.bytes);
        const QImage page = Drawn(pictures, picture, c.size);
        REQUIRE(!page.isNull());
        CHECK(IsReddish(page.pixelColor(c.red)));
        CHECK(IsBluish(page.pixelColor(c.blue)));
        picture.bytes.clear(); // what is kept needs none
        CHECK(pictures.IsKept(picture.position, {c.size.width(), c.size.height()}));
        CHECK(Drawn(pictures, picture, c.size) == page);
        CHECK_FALSE(pictures.IsKept(picture.position, {3, 3}));
    }
    QtPictures pictures;
    CHECK_FALSE(pictures.CanDecode(PictureFormat::Other));
}

TEST_CASE("qt pictures: a drawing has the sharpness of its box") {
    Picture picture;
    picture.format = PictureFormat::Svg;
    picture.bytes = SafeSvg("<svg xmlns='http://www.w3.org/2000/svg' width='2' height='2'><style>"
                            ".a{fill:#f00}</style><rect class='a' width='1' height='2'/></svg>");
    QtPictures pictures;
    REQUIRE(pictures.CanDecode(PictureFormat::Svg));
    const QImage page = Drawn(pictures, picture, {60, 60});
    REQUIRE(!page.isNull());
    CHECK(IsReddish(page.pixelColor(28, 30)));
    CHECK(page.pixelColor(31, 30) == Qt::white);
    picture.position = 1;
    picture.bytes = "";
    CHECK(Drawn(pictures, picture, {60, 60}).isNull());
}

TEST_CASE("qt pictures: a box that is much larger than its picture takes no memory for it") {
    QtPictures pictures;
    QImage page(64, 64, QImage::Format_RGB32);
    page.fill(Qt::white);
    QPainter painter(&page);
    QtCanvas canvas(painter);
    const Picture picture = Sample(pngPicture, PictureFormat::Png);
    CHECK(pictures.Draw(canvas, picture, {-10, -10, 30'000, 30'000}));
    painter.end();
    CHECK(IsReddish(page.pixelColor(20, 20)));
}
