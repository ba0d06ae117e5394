// What the records of metafiles draw.
#include "formats/metafile/metafile.h"
#include "formats/metafile/metafile_limits.h"
#include "tests/unit/metafile_samples.h"

#include <doctest/doctest.h>

#include <cmath>

namespace {
bool IsNear(double a, double b) {
    return std::abs(a - b) < 1e-6;
}

bool IsAt(const MetaPoint& point, double x, double y) {
    return IsNear(point.x, x) && IsNear(point.y, y);
}

// A window of 100 by 200 units with its origin at (10, 20).
const std::string window =
    WmfRecord(0x020B, Words({20, 10})) + WmfRecord(0x020C, Words({200, 100}));
} // namespace

TEST_CASE("wmf: a polygon with its pen and brush, in shares of the window") {
    const Metafile file = ReadWmf(Wmf(
        window + WmfRecord(0x02FA, Words({0, 20, 0, 0x00FF, 0})) +
        WmfRecord(0x02FC, Words({0, 0x3344, 0x0055, 0})) + WmfRecord(0x012D, Words({0})) +
        WmfRecord(0x012D, Words({1})) + WmfRecord(0x0324, Words({3, 10, 20, 110, 20, 60, 220}))));
    REQUIRE(file.commands.size() == 1);
    REQUIRE(file.shapes.size() == 1);
    const MetaShape& shape = file.shapes[0];
    CHECK(shape.isClosed);
    CHECK(shape.hasPen);
    CHECK(shape.pen == 0x0000FF);
    CHECK(IsNear(shape.penWidth, 0.1));
    CHECK(shape.hasBrush);
    CHECK(shape.brush == 0x553344);
    REQUIRE(shape.contours.size() == 1);
    REQUIRE(shape.contours[0].size() == 3);
    CHECK(IsAt(shape.contours[0][0], 0, 0));
    CHECK(IsAt(shape.contours[0][1], 1, 0));
    CHECK(IsAt(shape.contours[0][2], 0.5, 1));
}

TEST_CASE("wmf: lines from place to place, boxes and ellipses") {
    const Metafile file = ReadWmf(
        Wmf(window + WmfRecord(0x0214, Words({20, 10})) + WmfRecord(0x0213, Words({120, 60})) +
            WmfRecord(0x0213, Words({220, 110})) + WmfRecord(0x041B, Words({220, 110, 20, 10})) +
            WmfRecord(0x0418, Words({220, 110, 20, 10}))));
    REQUIRE(file.shapes.size() == 4);
    CHECK(IsAt(file.shapes[0].contours[0][1], 0.5, 0.5));
    CHECK(IsAt(file.shapes[1].contours[0][0], 0.5, 0.5));
    CHECK(IsAt(file.shapes[1].contours[0][1], 1, 1));
    CHECK(IsAt(file.shapes[2].contours[0][2], 1, 1));
    for (const MetaPoint& point : file.shapes[3].contours[0])
        CHECK(IsNear(std::hypot(point.x - 0.5, point.y - 0.5), 0.5));
}

TEST_CASE("wmf: text in its font, colour and alignment") {
    std::string font = Words({-50, 0, 900, 0, 700}) + std::string("\1\0\0\xCC\0\0\0\0Arial\0", 14);
    font.resize(50);
    const Metafile file = ReadWmf(
        Wmf(window + WmfRecord(0x02FB, font) + WmfRecord(0x012D, Words({0})) +
            WmfRecord(0x0209, Words({0x0203, 0x01})) + WmfRecord(0x012E, Words({6 | 24})) +
            WmfRecord(0x0102, Words({1})) +
            WmfRecord(0x0521, Words({3}) + std::string("\xC0\xC1\xC2\0", 4) + Words({120, 60})) +
            WmfRecord(0x0A32, Words({20, 10, 2, 0}) + "ab" + Words({20, 30}))));
    REQUIRE(file.texts.size() == 2);
    const MetaText& text = file.texts[0];
    CHECK(text.text == u"\u0410\u0411\u0412"); // of the Russian character set
    CHECK(text.font == u"Arial");
    CHECK(IsNear(text.height, 0.25));
    CHECK(IsNear(text.degrees, 90));
    CHECK(text.isBold);
    CHECK(text.isItalic);
    CHECK(text.color == 0x010203);
    CHECK_FALSE(text.hasBackground);
    CHECK(text.horizontal == MetaText::Horizontal::Center);
    CHECK(text.vertical == MetaText::Vertical::Baseline);
    CHECK(IsAt(text.place, 0.5, 0.5));
    CHECK(file.texts[1].text == u"ab");
    CHECK(IsNear(file.texts[1].width, 0.5));
}

TEST_CASE("wmf: bitmaps of every depth") {
    const auto image = [](const std::string& dib) {
        const Metafile file = ReadWmf(
            Wmf(window + WmfRecord(0x0F43, Longs({0x00CC0020}) +
                                               Words({0, 2, 2, 0, 0, 200, 100, 20, 10}) + dib)));
        REQUIRE(file.images.size() == 1);
        CHECK(IsNear(file.images[0].place.right, 1));
        return file.images[0].pixels;
    };
    const std::vector<std::uint32_t> expected{0xFFFF0000, 0xFF00FF00, 0xFF0000FF, 0xFFFFFFFF};
    CHECK(image(SmallBitmap()) == expected);
    const auto header = [](int bits, int colors, int compression = 0) {
        return Longs({40, 2, 2, bits << 16 | 1, compression, 0, 0, 0, colors, 0});
    };
    const std::string palette = Longs({0xFF0000, 0x00FF00, 0x0000FF, 0xFFFFFF});
    CHECK(image(header(8, 4) + palette + std::string("\2\3\0\0\0\1\0\0", 8)) == expected);
    CHECK(image(header(4, 4) + palette + std::string("\x23\0\0\0\x01\0\0\0", 8)) == expected);
    CHECK(image(header(32, 0) + Longs({0x0000FF, 0xFFFFFF, 0xFF0000, 0x00FF00})) == expected);
    CHECK(image(header(16, 0) + Words({0x001F, 0x7FFF, 0x7C00, 0x03E0})) == expected);
    CHECK(image(header(16, 0, 3) + Longs({0xF800, 0x07E0, 0x001F}) +
                Words({0x001F, 0xFFFF, 0xF800, 0x07E0})) == expected);
    const std::vector<std::uint32_t> twoColors{0xFFFF0000, 0xFF00FF00, 0xFF00FF00, 0xFFFF0000};
    CHECK(image(header(1, 2) + Longs({0xFF0000, 0x00FF00}) +
                std::string("\x80\0\0\0\x40\0\0\0", 8)) == twoColors);
}

TEST_CASE("wmf: a mask and its picture, and a part of a bitmap") {
    const auto stretch = [](std::int64_t operation, std::initializer_list<int> source) {
        return WmfRecord(0x0B41, Longs({operation}) + Words(source) + Words({200, 100, 20, 10}) +
                                     SmallBitmap());
    };
    const Metafile file = ReadWmf(
        Wmf(window + stretch(0x008800C6, {2, 2, 0, 0}) + stretch(0x00EE0086, {1, 1, 1, 1})));
    REQUIRE(file.images.size() == 2);
    CHECK(file.images[0].mode == MetaImage::Mode::And);
    CHECK(file.images[1].mode == MetaImage::Mode::Or);
    REQUIRE(file.images[1].pixels.size() == 1);
    CHECK(file.images[1].pixels[0] == 0xFFFFFFFF);
}

TEST_CASE("wmf: without a window all that is drawn is the picture") {
    const Metafile file = ReadWmf(Wmf(WmfRecord(0x0325, Words({2, 100, 300, 500, 700}))));
    REQUIRE(file.shapes.size() == 1);
    CHECK(IsAt(file.shapes[0].contours[0][0], 0, 0));
    CHECK(IsAt(file.shapes[0].contours[0][1], 1, 1));
    const std::string placeable =
        Longs({0x9AC6CDD7}) + Words({0, 100, 300, 900, 1100, 96, 0, 0, 0});
    const Metafile placed =
        ReadWmf(placeable + Wmf(WmfRecord(0x0325, Words({2, 100, 300, 500, 700}))));
    REQUIRE(placed.shapes.size() == 1);
    CHECK(IsAt(placed.shapes[0].contours[0][1], 0.5, 0.5));
}

TEST_CASE("emf: shapes, paths and a turned world, in shares of the frame") {
    const Metafile file = ReadEmf(
        Emf(EmfRecord(37, Longs({0x80000005})) +
            EmfRecord(86, Longs({0, 0, 0, 0, 3}) + Words({0, 0, 100, 0, 50, 100})) +
            EmfRecord(35, Longs({0, 0x40000000, 0xC0000000, 0, 0x42C80000, 0})) + // turns, doubles
            EmfRecord(27, Longs({0, 0})) + EmfRecord(54, Longs({50, 0})) +
            EmfRecord(36, Longs({0, 0, 0, 0, 0, 0, 1})) + EmfRecord(59, "") +
            EmfRecord(27, Longs({0, 0})) + EmfRecord(54, Longs({100, 0})) +
            EmfRecord(54, Longs({100, 100})) + EmfRecord(61, "") + EmfRecord(60, "") +
            EmfRecord(37, Longs({0x80000004})) + EmfRecord(63, Longs({0, 0, 0, 0}))));
    REQUIRE(file.shapes.size() == 3);
    CHECK_FALSE(file.shapes[0].hasBrush);
    CHECK(IsAt(file.shapes[0].contours[0][2], 0.5, 1));
    CHECK(IsAt(file.shapes[1].contours[0][0], 1, 0));
    CHECK(IsAt(file.shapes[1].contours[0][1], 1, 1));
    const MetaShape& path = file.shapes[2];
    CHECK(path.hasBrush);
    CHECK(path.brush == 0x000000);
    REQUIRE(path.contours.size() == 1);
    CHECK(path.contours[0].size() == 4);
    CHECK(IsAt(path.contours[0][3], 0, 0));
}

TEST_CASE("emf: text and bitmaps, mapped from a window to its viewport") {
    std::string font(12 + 92 + 8, '\0');
    font.replace(0, 8, Longs({1, -40}));
    font.replace(32, 10, std::string("S\0e\0r\0i\0f\0", 10));
    const std::string text = Longs({0, 0, 0, 0, 2, 0, 0, 100, 100, 2, 76, 0, 0, 0, 0, 0, 80}) +
                             std::string("\x3B\x04!\0", 4) + Longs({30, 20});
    const std::string bits = SmallBitmap();
    const Metafile file = ReadEmf(Emf(EmfRecord(17, Longs({8})) + EmfRecord(9, Longs({200, 200})) +
                                      EmfRecord(11, Longs({100, 100})) + EmfRecord(82, font) +
                                      EmfRecord(37, Longs({1})) + EmfRecord(24, Longs({0x00FF00})) +
                                      EmfRecord(84, text) +
                                      EmfRecord(81, Longs({0, 0, 0, 0, 100, 100, 0, 0, 2, 2, 80, 40,
                                                           120, 16, 0, 0x00CC0020, 100, 100}) +
                                                        bits)));
    REQUIRE(file.texts.size() == 1);
    CHECK(file.texts[0].text == u"\u043B!");
    CHECK(file.texts[0].font == u"Serif");
    CHECK(file.texts[0].color == 0x00FF00);
    CHECK(IsAt(file.texts[0].place, 0.5, 0.5));
    CHECK(IsNear(file.texts[0].height, 0.2));
    CHECK(IsNear(file.texts[0].width, 0.25));
    REQUIRE(file.images.size() == 1);
    CHECK(IsNear(file.images[0].place.left, 0.5));
    CHECK(IsNear(file.images[0].place.bottom, 1));
    CHECK(file.images[0].pixels[0] == 0xFFFF0000);
}

TEST_CASE("metafiles: nothing, noise and what is cut off") {
    CHECK(ReadWmf("").commands.empty());
    CHECK(ReadEmf("").commands.empty());
    CHECK(ReadEmf(Wmf(window)).commands.empty());
    const std::string whole =
        Wmf(window + WmfRecord(0x0324, Words({3, 0, 0, 1, 1, 2, 2})) +
            WmfRecord(0x0F43,
                      Longs({0x00CC0020}) + Words({0, 2, 2, 0, 0, 9, 9, 0, 0}) + SmallBitmap()));
    for (std::size_t size = 0; size < whole.size(); ++size)
        CHECK(ReadWmf(whole.substr(0, size)).commands.size() <= 2);
}

TEST_CASE("metafiles: the limits hold") {
    std::string records;
    for (std::size_t i = 0; i < maxMetaCommands + 10; ++i)
        records += WmfRecord(0x041B, Words({1, 1, 0, 0}));
    const Metafile file = ReadWmf(Wmf(window + records));
    CHECK(file.commands.size() == maxMetaCommands);
    CHECK(file.shapes.size() == maxMetaCommands);
    std::string covers;
    for (int i = 0; i < 2 * static_cast<int>(maxMetaCover); ++i)
        covers += WmfRecord(0x041B, Words({220, 110, 20, 10}));
    CHECK(ReadWmf(Wmf(window + covers)).commands.size() == static_cast<std::size_t>(maxMetaCover));
    // A bitmap of four billion pixels of which there are sixteen bytes.
    const std::string huge = Longs({40, 65535, 65535, 24 << 16 | 1, 0, 0, 0, 0, 0, 0});
    CHECK(ReadWmf(Wmf(window +
                      WmfRecord(0x0F43, Longs({0x00CC0020}) + Words({0, 2, 2, 0, 0, 9, 9, 0, 0}) +
                                            huge + std::string(16, '\0'))))
              .images.empty());
}
