// Metafiles in the text view.
#include "tests/contract/qt/text_view_bench.h"
#include "tests/unit/metafile_samples.h"

#include <doctest/doctest.h>

#include <QImage>

namespace {
std::string Hex(const std::string& bytes) {
    constexpr char digits[] = "0123456789abcdef";
    std::string hex;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        hex += {digits[byte >> 4], digits[byte & 0xF]};
    }
    return hex;
}

// A picture of 100 by 100 pixels, and nothing else.
QImage Shown(QtViewBench& bench, const std::string& kind, const std::string& bytes) {
    bench.view.LoadRichText(
        "{\\rtf1{\\pict" + kind + "\\picwgoal1500\\pichgoal1500 " + Hex(bytes) + "}}", 1252);
    return bench.Widget().viewport()->grab().toImage();
}

int Count(const QImage& image, QColor color) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y) == color;
    return count;
}

const std::string window = WmfRecord(0x020B, Words({0, 0})) + WmfRecord(0x020C, Words({100, 100}));
const std::string noPen = WmfRecord(0x02FA, Words({5, 0, 0, 0, 0})) + WmfRecord(0x012D, Words({0}));

std::string Brush(Color color, int number) {
    return WmfRecord(0x02FC, Words({0}) + Longs({color}) + Words({0})) +
           WmfRecord(0x012D, Words({number}));
}
} // namespace

TEST_CASE("qt text view: a metafile is drawn in its place and size") {
    QtViewBench bench;
    const std::string box = WmfRecord(0x041B, Words({50, 50, 0, 0}));
    const QImage image =
        Shown(bench, "\\wmetafile8", Wmf(window + noPen + Brush(0x0000FF, 1) + box));
    CHECK(std::abs(Count(image, Qt::red) - 50 * 50) < 200);

    const QImage enhanced =
        Shown(bench, "\\emfblip",
              Emf(EmfRecord(37, Longs({0x80000008})) + EmfRecord(39, Longs({1, 0, 0xFF0000, 0})) +
                  EmfRecord(37, Longs({1})) + EmfRecord(43, Longs({0, 0, 100, 50}))));
    CHECK(std::abs(Count(enhanced, Qt::blue) - 100 * 50) < 200);
}

TEST_CASE("qt text view: a metafile of bitmaps, with and without a mask") {
    QtViewBench bench;
    const auto stretch = [](std::int64_t operation) {
        return WmfRecord(0x0F43, Longs({operation}) + Words({0, 2, 2, 0, 0, 100, 100, 0, 0}) +
                                     SmallBitmap());
    };
    const QImage copied = Shown(bench, "\\wmetafile8", Wmf(window + stretch(0x00CC0020)));
    CHECK(Count(copied, Qt::red) > 400); // smooth at its edges
    CHECK(Count(copied, Qt::green) > 400);
    CHECK(Count(copied, Qt::blue) > 400);
    // What was blue stays so where the mask lets it through.
    const std::string masked = noPen + Brush(0xFF0000, 1) +
                               WmfRecord(0x041B, Words({100, 100, 0, 0})) + stretch(0x008800C6);
    const QImage cut = Shown(bench, "\\wmetafile8", Wmf(window + masked));
    CHECK(Count(cut, Qt::red) == 0);
    CHECK(Count(cut, Qt::blue) > 800);
}

TEST_CASE("qt text view: a metafile without known records leaves a frame, and no harm is done") {
    QtViewBench bench;
    const QImage empty = Shown(bench, "\\wmetafile8", Wmf(window));
    const QImage frame = Shown(bench, "\\macpict", "abc");
    CHECK(empty == frame);
    CHECK(Shown(bench, "\\emfblip", "no metafile at all") == frame);
    const std::string far = WmfRecord(0x0325, Words({2, -32768, -32768, 32767, 32767})) +
                            WmfRecord(0x0418, Words({32767, 32767, -32768, -32768}));
    const std::string tiny = WmfRecord(0x020C, Words({1, 1}));
    CHECK(Shown(bench, "\\wmetafile8", Wmf(tiny + far)) != frame);
}
